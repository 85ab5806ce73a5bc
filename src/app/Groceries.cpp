#include "app/Groceries.h"

#include "platform/reader/DocumentReader.h"
#include "reminders/GroceryList.h"

#include <QCoro/QCoroFuture>
#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QLibrary>
#include <QtCore/QPromise>

namespace ovrin {

namespace {

/// See GroceryModule.cpp.
using AddAndTell = void (*)(std::unique_ptr<ReminderStore>& store, const QStringList& lines,
                            const QString& recipeTitle, QString& answer);

QString addAndTell(std::unique_ptr<ReminderStore>& store, const QStringList& lines,
                   const QString& recipeTitle)
{
    // It lies among the helpers, wherever those are.
    const QFileInfo helper(
        findHelper(QCoreApplication::applicationDirPath(), QStringLiteral("ovrin-notifier")));
    QLibrary library(helper.absolutePath() + QStringLiteral("/ovrin-groceries.so"));
    const auto add = reinterpret_cast<AddAndTell>(library.resolve("ovrinAddToGroceries"));
    if (!add)
        return GroceryList::Failure(GroceryList::Failure::Case::AccessDenied).errorDescription();
    QString answer;
    add(store, lines, recipeTitle, answer);
    return answer;
}

} // namespace

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
        promise->addResult(addAndTell(m_store, lines, recipeTitle));
        promise->finish();
    });
    co_return co_await future;
}

} // namespace ovrin
