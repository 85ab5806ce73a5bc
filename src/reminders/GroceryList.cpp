#include "reminders/GroceryList.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace ovrin::GroceryList {

namespace {

using Source = ReminderStore::Source;
using SourceKind = ReminderStore::SourceKind;

Source sourceForNewList(ReminderStore& store)
{
    if (const auto source = store.defaultSource())
        return *source;
    const std::vector<Source> sources = store.sources();
    for (const SourceKind kind : {SourceKind::CalDav, SourceKind::Local}) {
        const auto found =
            std::find_if(sources.begin(), sources.end(), [&](const Source& s) { return s.kind == kind; });
        if (found != sources.end())
            return *found;
    }
    throw Failure(Failure::Case::NoSource);
}

ReminderStore::List groceriesList(ReminderStore& store)
{
    const QString title = QStringLiteral("Groceries");
    for (const ReminderStore::List& list : store.lists()) {
        if (list.title.compare(title, Qt::CaseInsensitive) == 0)
            return list;
    }
    return store.createList(title, sourceForNewList(store));
}

QString descriptionOf(Failure::Case reason)
{
    switch (reason) {
    case Failure::Case::AccessDenied:
        return QCoreApplication::translate("GroceryList",
                                           "Ovrin doesn't have access to Reminders. You can allow it in "
                                           "Settings › Privacy & Security › Reminders.");
    case Failure::Case::NoSource:
        return QCoreApplication::translate("GroceryList",
                                           "Couldn't find a Reminders account to add the Groceries list to.");
    }
    return {};
}

} // namespace

Failure::Failure(Case reason)
    : ReminderStoreError(descriptionOf(reason))
    , m_reason(reason)
{
}

void add(ReminderStore& store, const QStringList& items, const QString& recipeTitle)
try {
    if (!store.requestAccess())
        throw Failure(Failure::Case::AccessDenied);
    const ReminderStore::List list = groceriesList(store);
    std::vector<ReminderStore::Reminder> reminders;
    reminders.reserve(std::size_t(items.size()));
    for (const QString& item : items)
        reminders.push_back({item, recipeTitle});
    store.add(list, reminders);
} catch (const ReminderAccessDenied&) {
    throw Failure(Failure::Case::AccessDenied);
}

QString addAndTell(ReminderStore& store, const QStringList& items, const QString& recipeTitle)
{
    try {
        add(store, items, recipeTitle);
    } catch (const ReminderStoreError& failure) {
        return failure.errorDescription();
    }
    // "items" for every count, one included.
    return QCoreApplication::translate("GroceryList", "Added %1 items to your Groceries list.")
        .arg(items.size());
}

} // namespace ovrin::GroceryList
