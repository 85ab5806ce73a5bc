#include "app/Groceries.h"

#include "platform/reminders/DesktopReminderStore.h"
#include "reminders/GroceryList.h"

#include <QCoro/QCoroFuture>
#include <QtCore/QPromise>
#include <QtCore/QThreadPool>

namespace ovrin {

QCoro::Task<QString> addToGroceries(QStringList lines, QString recipeTitle)
{
    const auto promise = std::make_shared<QPromise<QString>>();
    const QFuture<QString> future = promise->future();
    promise->start();
    QThreadPool::globalInstance()->start([promise, lines, recipeTitle] {
        DesktopReminderStore store;
        promise->addResult(GroceryList::addAndTell(store, lines, recipeTitle));
        promise->finish();
    });
    co_return co_await future;
}

} // namespace ovrin
