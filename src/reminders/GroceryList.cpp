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

} // namespace

QString Failure::errorDescription() const
{
    switch (m_reason) {
    case Case::AccessDenied:
        return QCoreApplication::translate("GroceryList",
                                           "Ovrin doesn't have access to Reminders. You can allow it in "
                                           "Settings › Privacy & Security › Reminders.");
    case Case::NoSource:
        return QCoreApplication::translate("GroceryList",
                                           "Couldn't find a Reminders account to add the Groceries list to.");
    }
    return {};
}

const char* Failure::what() const noexcept
{
    return m_reason == Case::AccessDenied ? "access to the task lists denied"
                                          : "no account for the task list";
}

void add(ReminderStore& store, const QStringList& items, const QString& recipeTitle)
{
    if (!store.requestAccess())
        throw Failure(Failure::Case::AccessDenied);
    const ReminderStore::List list = groceriesList(store);
    std::vector<ReminderStore::Reminder> reminders;
    reminders.reserve(std::size_t(items.size()));
    for (const QString& item : items)
        reminders.push_back({item, recipeTitle});
    store.add(list, reminders);
}

} // namespace ovrin::GroceryList
