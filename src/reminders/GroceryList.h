#pragma once

#include "reminders/ReminderStore.h"

#include <QtCore/QStringList>

namespace ovrin {

/// Puts a recipe's ingredient lines into the task list "Groceries".
namespace GroceryList {

/// The failures with messages of their own; other errors of the store pass through unchanged.
class Failure : public std::exception
{
public:
    enum class Case { AccessDenied, NoSource };

    explicit Failure(Case reason)
        : m_reason(reason)
    {
    }
    Case reason() const { return m_reason; }
    QString errorDescription() const;
    const char* what() const noexcept override;

private:
    Case m_reason;
};

/// Adds one reminder a line of `items`, in order and as they stand, each with `recipeTitle` as its notes.
/// An existing list is found ignoring case; otherwise one is made in the account that new reminders go to,
/// else in the first CalDAV one, else in the first local one. Blocks; throws Failure or ReminderStoreError.
void add(ReminderStore& store, const QStringList& items, const QString& recipeTitle);

} // namespace GroceryList

} // namespace ovrin
