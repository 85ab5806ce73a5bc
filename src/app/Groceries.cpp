#include "app/Groceries.h"

#include "platform/reminders/DesktopReminderStore.h"
#include "reminders/GroceryList.h"

#include <QCoro/QCoroFuture>
#include <QtCore/QPromise>

namespace ovrin {

Groceries::Groceries()
{
    m_thread.setMaxThreadCount(1);
    m_thread.setExpiryTimeout(-1);
}

Groceries::~Groceries()
{
    m_thread.start([this] { m_store.reset(); });
    m_thread.waitForDone();
}

QCoro::Task<QString> Groceries::add(QStringList lines, QString recipeTitle)
{
    const auto promise = std::make_shared<QPromise<QString>>();
    const QFuture<QString> future = promise->future();
    promise->start();
    m_thread.start([this, promise, lines, recipeTitle] {
        if (!m_store)
            m_store = std::make_unique<DesktopReminderStore>();
        promise->addResult(GroceryList::addAndTell(*m_store, lines, recipeTitle));
        promise->finish();
    });
    co_return co_await future;
}

} // namespace ovrin
