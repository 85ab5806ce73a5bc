#include "app/Groceries.h"

#include "platform/reminders/DesktopReminderStore.h"
#include "reminders/GroceryList.h"

#include <QCoro/QCoroFuture>
#include <QtCore/QCoreApplication>
#include <QtCore/QPromise>
#include <QtCore/QThreadPool>

namespace ovrin {

namespace {

QString add(const QStringList& lines, const QString& recipeTitle)
{
    try {
        DesktopReminderStore store;
        GroceryList::add(store, lines, recipeTitle);
    } catch (const std::exception& failure) {
        return QString::fromUtf8(failure.what());
    }
    // "items" for every count, as everywhere in this sentence.
    return QCoreApplication::translate("Groceries", "Added %1 items to your Groceries list.")
        .arg(lines.size());
}

} // namespace

QCoro::Task<QString> addToGroceries(QStringList lines, QString recipeTitle)
{
    const auto promise = std::make_shared<QPromise<QString>>();
    const QFuture<QString> future = promise->future();
    promise->start();
    QThreadPool::globalInstance()->start([promise, lines, recipeTitle] {
        promise->addResult(add(lines, recipeTitle));
        promise->finish();
    });
    co_return co_await future;
}

} // namespace ovrin
