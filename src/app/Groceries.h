#pragma once

#include "reminders/ReminderStore.h"

#include <QCoro/QCoroTask>
#include <QtCore/QStringList>
#include <QtCore/QThreadPool>

#include <memory>

namespace ovrin {

/// The desktop's grocery list, on a thread of its own.
class Groceries
{
public:
    Groceries();
    /// Waits for what is being added.
    ~Groceries();
    Groceries(const Groceries&) = delete;
    Groceries& operator=(const Groceries&) = delete;

    /// Adds the lines and gives the text to show: how many there were, or why it could not be done.
    QCoro::Task<QString> add(QStringList lines, QString recipeTitle);

private:
    /// One thread that stays, since the store belongs to it.
    QThreadPool m_thread;
    /// Made when it is first used.
    std::unique_ptr<ReminderStore> m_store;
};

} // namespace ovrin
