#include "model/RecipeStore.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>

namespace ovrin {
namespace {

RecipeDraft draftTitled(const QString& title)
{
    RecipeDraft draft;
    draft.title = title;
    draft.ingredients = {QStringLiteral("1 egg")};
    draft.steps = {{.title = {}, .paragraphs = {QStringLiteral("Boil.")}}};
    return draft;
}

/// A library in a folder of its own, whose clock stands still unless told.
class StoreTest : public testing::Test
{
protected:
    StoreTest() { store = openStore(); }

    std::unique_ptr<RecipeStore> openStore()
    {
        auto opened = RecipeStore::open({.folder = folder.path(),
                                         .now = [this] { return now; },
                                         .locale = QLocale::c(),
                                         .vfs = {},
                                         .refreshInterval = std::chrono::milliseconds(0)});
        EXPECT_TRUE(opened.store) << opened.error.toStdString();
        return std::move(opened.store);
    }

    RecipePtr add(const QString& title)
    {
        auto recipe = std::make_shared<Recipe>(draftTitled(title), now);
        store->insert(recipe);
        return recipe;
    }

    void settle(RecipeStore& which)
    {
        const SaveResult result = which.saved().result();
        EXPECT_TRUE(result.isSaved()) << result.error.toStdString();
        QCoreApplication::processEvents();
    }

    static QStringList titles(const RecipeStore& which)
    {
        QStringList result;
        for (const RecipePtr& recipe : which.recipes())
            result.append(recipe->title());
        return result;
    }

    QTemporaryDir folder;
    Instant now{std::chrono::sys_days(std::chrono::year(2024) / 5 / 1)};
    std::unique_ptr<RecipeStore> store;
};

TEST_F(StoreTest, KeepsAllTwentyAttributes)
{
    RecipeDraft draft = draftTitled(QStringLiteral("Soup"));
    draft.imageData = QByteArray("\xff\xd8\x00photo", 8);
    draft.sourceURL = QUrl(QStringLiteral("https://example.org/ä?a=1+2"));
    draft.summary = QStringLiteral("½ warm");
    auto recipe = std::make_shared<Recipe>(draft, now + std::chrono::microseconds(7));
    store->insert(recipe);
    recipe->setNotes(QStringLiteral("More salt.\n"));
    recipe->setSaved(true);
    recipe->setScale(1.5);
    recipe->setTintHex(QStringLiteral("AABBCC"));
    recipe->recordCook(now + std::chrono::microseconds(123456789));
    recipe->setPrepMinutes(5);
    const RecipeRecord record = recipe->record();
    store.reset();
    store = openStore();
    ASSERT_EQ(store->count(), 1);
    EXPECT_EQ(store->at(0)->record(), record);
}

TEST_F(StoreTest, ListsNewestFirstAndTiesInOrderOfInsertion)
{
    add(QStringLiteral("b1"));
    now += std::chrono::microseconds(1);
    add(QStringLiteral("a"));
    now -= std::chrono::microseconds(1);
    add(QStringLiteral("b2"));
    now -= std::chrono::hours(1);
    const RecipePtr last = add(QStringLiteral("c"));
    const QStringList expected{QStringLiteral("a"), QStringLiteral("b1"), QStringLiteral("b2"),
                               QStringLiteral("c")};
    EXPECT_EQ(titles(*store), expected);
    EXPECT_EQ(store->indexOf(*last), 3);
    store.reset();
    EXPECT_FALSE(last->isInLibrary());
    store = openStore();
    EXPECT_EQ(titles(*store), expected);
}

TEST_F(StoreTest, TellsOfEachChangeByItself)
{
    QStringList told;
    QObject::connect(store.get(), &RecipeStore::inserted,
                     [&](qsizetype i) { told << QStringLiteral("+%1").arg(i); });
    QObject::connect(store.get(), &RecipeStore::removed,
                     [&](qsizetype i, const RecipePtr&) { told << QStringLiteral("-%1").arg(i); });
    QObject::connect(store.get(), &RecipeStore::changed, [&](qsizetype i, RecipeAttributes attributes) {
        told << QStringLiteral("%1:%2").arg(i).arg(quint32(attributes));
    });
    const RecipePtr old = add(QStringLiteral("old"));
    now += std::chrono::seconds(1);
    const RecipePtr fresh = add(QStringLiteral("fresh"));
    old->setTitle(QStringLiteral("older"));
    old->setTitle(QStringLiteral("older"));
    fresh->recordCook(now);
    store->remove(fresh);
    store->insert(fresh);
    settle(*store);
    store->refresh();
    const quint32 cooked = quint32(RecipeAttribute::LastCookedAt) | quint32(RecipeAttribute::TimesCooked);
    EXPECT_EQ(told,
              QStringList({QStringLiteral("+0"), QStringLiteral("+0"),
                           QStringLiteral("1:%1").arg(quint32(RecipeAttribute::Title)),
                           QStringLiteral("0:%1").arg(cooked), QStringLiteral("-0"), QStringLiteral("+0")}));
}

TEST_F(StoreTest, RemovalCanBeUndone)
{
    RecipeDraft draft = draftTitled(QStringLiteral("Soup"));
    draft.imageData = QByteArray("photo");
    const RecipePtr added = std::make_shared<Recipe>(draft, now);
    store->insert(added);
    added->setNotes(QStringLiteral("mine"));
    const RecipeRecord record = added->record();
    store.reset();

    store = openStore();
    const RecipePtr recipe = store->at(0);
    store->remove(recipe);
    settle(*store);
    EXPECT_TRUE(recipe->isGone());
    EXPECT_EQ(store->count(), 0);
    EXPECT_EQ(recipe->record(), record);
    recipe->setScale(3);
    recipe->setScale(1);

    store->insert(recipe);
    EXPECT_FALSE(recipe->isGone());
    store.reset();
    store = openStore();
    EXPECT_EQ(store->at(0)->record(), record);
}

TEST_F(StoreTest, FindsRecipesByAddressFullyEncoded)
{
    const RecipePtr recipe = add(QStringLiteral("Soup"));
    recipe->setSourceURL(QUrl(QStringLiteral("https://example.org/ä b")));
    EXPECT_EQ(store->existingRecipe(QUrl(QStringLiteral("https://example.org/%C3%A4%20b"))), recipe);
    EXPECT_FALSE(store->existingRecipe(QUrl(QStringLiteral("https://example.org/%C3%A4%20b/"))));
    EXPECT_FALSE(store->existingRecipe(QUrl()));
}

TEST_F(StoreTest, SeesWhatAnotherProcessChanges)
{
    const auto other = openStore();
    QStringList told;
    QObject::connect(other.get(), &RecipeStore::inserted, [&] { told << QStringLiteral("inserted"); });
    QObject::connect(other.get(), &RecipeStore::removed, [&] { told << QStringLiteral("removed"); });
    QObject::connect(other.get(), &RecipeStore::changed, [&](qsizetype, RecipeAttributes attributes) {
        told << QString::number(quint32(attributes));
    });

    const RecipePtr recipe = add(QStringLiteral("Soup"));
    settle(*store);
    other->refresh();
    ASSERT_EQ(titles(*other), QStringList(QStringLiteral("Soup")));
    const RecipePtr seen = other->at(0);
    EXPECT_EQ(seen->notes(), QString());

    recipe->setNotes(QStringLiteral("new"));
    recipe->setImageData(QByteArray("photo"));
    recipe->setTitle(QStringLiteral("Stew"));
    settle(*store);
    other->refresh();
    EXPECT_EQ(seen->record(), recipe->record());

    seen->setYield(QStringLiteral("4"));
    settle(*other);
    store->refresh();
    EXPECT_EQ(recipe->yield(), QStringLiteral("4"));

    store->remove(recipe);
    settle(*store);
    other->refresh();
    EXPECT_TRUE(seen->isGone());
    EXPECT_EQ(told.size(), 4);
    EXPECT_EQ(told.value(1), QString::number(quint32(RecipeAttribute::Title | RecipeAttribute::Notes |
                                                     RecipeAttribute::ImageData)));
}

TEST_F(StoreTest, CatchesUpAfterMoreChangesThanTheLogHolds)
{
    const RecipePtr removed = add(QStringLiteral("removed"));
    const RecipePtr changed = add(QStringLiteral("changed"));
    settle(*store);
    const auto other = openStore();
    store->remove(removed);
    for (int i = 0; i <= 1000; ++i)
        changed->setNotes(QString::number(i));
    add(QStringLiteral("added"));
    settle(*store);
    other->refresh();
    EXPECT_EQ(titles(*other), titles(*store));
    EXPECT_EQ(other->at(0)->notes(), QStringLiteral("1000"));
}

TEST_F(StoreTest, ChangeToARecipeRemovedElsewhereFailsAndTakesItOut)
{
    const RecipePtr recipe = add(QStringLiteral("Soup"));
    settle(*store);
    const auto other = openStore();
    other->remove(other->at(0));
    settle(*other);

    QString message;
    QObject::connect(store.get(), &RecipeStore::saveFailed,
                     [&](const RecipePtr&, const QString& text) { message = text; });
    recipe->setSaved(true);
    EXPECT_FALSE(store->saved().result().isSaved());
    QCoreApplication::processEvents();
    EXPECT_EQ(message, QStringLiteral("The recipe is no longer in the library."));
    EXPECT_TRUE(recipe->isGone());
    EXPECT_EQ(store->count(), 0);
}

} // namespace
} // namespace ovrin
