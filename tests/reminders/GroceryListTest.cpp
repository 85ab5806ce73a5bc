#include "reminders/GroceryList.h"

#include <gtest/gtest.h>

using namespace ovrin;

namespace {

using Kind = ReminderStore::SourceKind;

/// Task lists in memory, whose operations can be made to fail.
class MemoryStore : public ReminderStore
{
public:
    bool allowsAccess = true;
    std::optional<Source> newReminders;
    std::vector<Source> accounts;
    std::vector<List> existing;
    bool failsToAdd = false;
    bool withholdsList = false;

    std::vector<std::pair<QString, QString>> created;
    std::vector<std::pair<QString, std::vector<Reminder>>> added;

    bool requestAccess() override { return allowsAccess; }
    std::vector<List> lists() override { return existing; }
    std::optional<Source> defaultSource() override { return newReminders; }
    std::vector<Source> sources() override { return accounts; }
    List createList(const QString& title, const Source& source) override
    {
        created.emplace_back(title, source.id);
        return {QStringLiteral("new"), title};
    }
    void add(const List& list, const std::vector<Reminder>& reminders) override
    {
        if (withholdsList)
            throw ReminderAccessDenied(QStringLiteral("Not yours."));
        if (failsToAdd)
            throw ReminderStoreError(QStringLiteral("The list is read-only."));
        added.emplace_back(list.id, reminders);
    }
};

TEST(GroceryList, ReusesAListWhateverItsCase)
{
    MemoryStore store;
    store.existing = {{QStringLiteral("1"), QStringLiteral("To Do")},
                      {QStringLiteral("2"), QStringLiteral("GROCERIES")},
                      {QStringLiteral("3"), QStringLiteral("Groceries")}};
    GroceryList::add(store, {QStringLiteral(" 2 eggs "), QStringLiteral("salt"), QStringLiteral("salt")},
                     QStringLiteral("Cake"));
    EXPECT_TRUE(store.created.empty());
    ASSERT_EQ(store.added.size(), 1U);
    EXPECT_EQ(store.added[0].first, QStringLiteral("2"));
    ASSERT_EQ(store.added[0].second.size(), 3U);
    EXPECT_EQ(store.added[0].second[0].title, QStringLiteral(" 2 eggs "));
    EXPECT_EQ(store.added[0].second[2].notes, QStringLiteral("Cake"));
}

TEST(GroceryList, MakesTheListInTheRightAccount)
{
    const ReminderStore::Source local{QStringLiteral("local"), Kind::Local};
    const ReminderStore::Source calDav{QStringLiteral("caldav"), Kind::CalDav};
    const ReminderStore::Source other{QStringLiteral("other"), Kind::Other};
    struct Row
    {
        std::optional<ReminderStore::Source> newReminders;
        std::vector<ReminderStore::Source> accounts;
        const char* expected;
    };
    for (const Row& row : {Row{other, {calDav, local}, "other"}, Row{{}, {other, local, calDav}, "caldav"},
                           Row{{}, {other, local}, "local"}, Row{{}, {local}, "local"}}) {
        MemoryStore store;
        store.newReminders = row.newReminders;
        store.accounts = row.accounts;
        GroceryList::add(store, {}, {});
        ASSERT_EQ(store.created.size(), 1U);
        EXPECT_EQ(store.created[0],
                  std::pair(QStringLiteral("Groceries"), QString::fromLatin1(row.expected)));
    }
}

TEST(GroceryList, SaysWhyNothingWasAdded)
{
    MemoryStore refused;
    refused.allowsAccess = false;
    refused.existing = {{QStringLiteral("1"), QStringLiteral("Groceries")}};
    MemoryStore homeless;
    homeless.accounts = {{QStringLiteral("other"), Kind::Other}};
    for (auto [store, message] :
         {std::pair<MemoryStore*, const char*>{&refused,
                                               "Ovrin doesn't have access to Reminders. You can allow it in "
                                               "Settings › Privacy & Security › Reminders."},
          {&homeless, "Couldn't find a Reminders account to add the Groceries list to."}}) {
        EXPECT_THROW(GroceryList::add(*store, {QStringLiteral("salt")}, {}), GroceryList::Failure);
        EXPECT_EQ(GroceryList::addAndTell(*store, {QStringLiteral("salt")}, {}), QString::fromUtf8(message));
        EXPECT_TRUE(store->added.empty() && store->created.empty());
    }
    MemoryStore readOnly;
    readOnly.existing = refused.existing;
    readOnly.failsToAdd = true;
    EXPECT_EQ(GroceryList::addAndTell(readOnly, {QStringLiteral("salt")}, {}),
              QStringLiteral("The list is read-only."));
    MemoryStore withheld;
    withheld.existing = refused.existing;
    withheld.withholdsList = true;
    EXPECT_THROW(GroceryList::add(withheld, {QStringLiteral("salt")}, {}), GroceryList::Failure);
}

TEST(GroceryList, CountsWhatWasAdded)
{
    MemoryStore store;
    store.existing = {{QStringLiteral("1"), QStringLiteral("Groceries")}};
    EXPECT_EQ(GroceryList::addAndTell(store, {QStringLiteral("salt")}, {}),
              QStringLiteral("Added 1 items to your Groceries list."));
}

} // namespace
