#pragma once

#include "reminders/ReminderStore.h"

#include <QtCore/QStringList>

namespace ovrin {

/// Puts a recipe's ingredient lines into the task list "Groceries".
namespace GroceryList {

/// The failures with messages of their own; other errors of the store pass through unchanged.
class Failure : public ReminderStoreError
{
public:
    enum class Case { AccessDenied, NoSource };

    explicit Failure(Case reason);
    Case reason() const { return m_reason; }

private:
    Case m_reason;
};

/// Adds one reminder a line of `items`, in order and as they stand, each with `recipeTitle` as its notes.
/// An existing list is found ignoring case; otherwise one is made in the account that new reminders go to,
/// else in the first CalDAV one, else in the first local one. Blocks; throws Failure or ReminderStoreError.
void add(ReminderStore& store, const QStringList& items, const QString& recipeTitle);

/// The same, and gives the sentence to show of its outcome, whatever that is.
QString addAndTell(ReminderStore& store, const QStringList& items, const QString& recipeTitle);

} // namespace GroceryList

} // namespace ovrin
