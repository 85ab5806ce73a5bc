#include "ui/library/LibraryModel.h"

#include "ui/images/RecipePhotos.h"
#include "ui/library/RowChanges.h"
#include "ui/support/Library.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <gtest/gtest.h>

#include <random>

using namespace ovrin;

namespace {

class LibraryModelTest : public testing::Test
{
protected:
    Library library;
    RecipePhotos photos{library.store()};
    LibraryModel model{library.store(), photos};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};

    QStringList titles() const
    {
        QStringList titles;
        for (int row = 0; row < model.rowCount(); ++row)
            titles << model.index(row).data(LibraryModel::TitleRole).toString();
        return titles;
    }
};

TEST_F(LibraryModelTest, followsTheLibraryNewestFirst)
{
    const RecipePtr soup = library.add(u"Soup"_qs);
    const RecipePtr cake = library.add(u"Cake"_qs);
    library.add(u"Bread"_qs);
    EXPECT_EQ(titles(), QStringList({u"Bread"_qs, u"Cake"_qs, u"Soup"_qs}));

    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    cake->setTitle(u"Almond Cake"_qs);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed.first().first().toModelIndex().row(), 1);

    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    library.store().remove(cake);
    library.store().insert(cake);
    EXPECT_EQ(titles(), QStringList({u"Bread"_qs, u"Almond Cake"_qs, u"Soup"_qs}));
    EXPECT_EQ(removed.size(), 1);
    EXPECT_EQ(reset.size(), 0);
    EXPECT_EQ(model.rowOf(soup->id().toString(QUuid::WithoutBraces)), 2);
}

TEST_F(LibraryModelTest, aRecipeEntersAndLeavesAFilterAtOnce)
{
    const RecipePtr soup = library.add(u"Soup"_qs);
    library.add(u"Cake"_qs);
    model.setFilterName(u"Saved"_qs);
    EXPECT_EQ(titles(), QStringList());
    soup->setSaved(true);
    EXPECT_EQ(titles(), QStringList({u"Soup"_qs}));
    model.setFilterName(u"Cooked"_qs);
    EXPECT_EQ(titles(), QStringList());
    soup->recordCook(library.store().now());
    EXPECT_EQ(titles(), QStringList({u"Soup"_qs}));
    model.setFilterName(u"Saved"_qs);
    soup->setSaved(false);
    EXPECT_EQ(titles(), QStringList());
    model.setFilterName(u"no such filter"_qs);
    EXPECT_EQ(model.count(), 2);
}

TEST_F(LibraryModelTest, whatIsRecentAgesWithTheClock)
{
    library.add(u"Soup"_qs);
    model.setFilter(LibraryFilter::Recent);
    EXPECT_EQ(model.count(), 1);
    library.advance(std::chrono::days(14));
    model.refresh();
    EXPECT_EQ(model.count(), 0);
}

TEST_F(LibraryModelTest, searchingNarrowsAndWidensByRows)
{
    for (int i = 0; i < 300; ++i)
        library.add(i % 3 ? u"Soup %1"_qs.arg(i) : u"Crème brûlée %1"_qs.arg(i));
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    // What a view shows that knows of nothing but what it was told.
    QStringList shown = titles();
    const auto title = [this](int row) { return model.index(row).data(LibraryModel::TitleRole).toString(); };
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved,
                     [&](const QModelIndex&, int first, int last) { shown.remove(first, last - first + 1); });
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, [&](const QModelIndex&, int first, int last) {
        for (int row = first; row <= last; ++row)
            shown.insert(row, title(row));
    });
    QObject::connect(&model, &QAbstractItemModel::dataChanged,
                     [&](const QModelIndex& first, const QModelIndex& last) {
                         for (int row = first.row(); row <= last.row(); ++row)
                             shown[row] = title(row);
                     });
    for (const QString& search :
         {u"c"_qs, u"creme"_qs, u"creme brulee 1"_qs, u"soup"_qs, u"x"_qs, QString()}) {
        model.setSearch(search);
        QStringList expected;
        for (const RecipePtr& recipe : library.store().visible(LibraryFilter::All, search))
            expected << recipe->title();
        EXPECT_EQ(titles(), expected) << qPrintable(search);
        EXPECT_EQ(shown, expected) << qPrintable(search);
    }
    EXPECT_EQ(reset.size(), 0);
}

TEST(RowChanges, turnOneListIntoTheOther)
{
    std::mt19937 random(7);
    std::vector<RecipePtr> all;
    for (int i = 0; i < 60; ++i)
        all.push_back(std::make_shared<Recipe>(RecipeDraft{}, Instant{}));
    for (int round = 0; round < 300; ++round) {
        std::vector<RecipePtr> now;
        std::vector<RecipePtr> wanted;
        for (const RecipePtr& recipe : all) {
            if (random() % 3)
                now.push_back(recipe);
            if (random() % 3)
                wanted.push_back(recipe);
        }
        const auto most = static_cast<qsizetype>(random() % 20);
        const auto changes = rowChanges(now, wanted, most);
        for (const RowChange& change : changes)
            if (change.kind == RowChange::Remove)
                now.erase(now.begin() + change.row, now.begin() + change.row + change.count);
            else
                now.insert(now.begin() + change.row, wanted.begin() + change.source,
                           wanted.begin() + change.source + change.count);
        EXPECT_EQ(now, wanted);
        // A round of the walk may add two runs before the limit is seen again, and the rest is two more.
        EXPECT_LE(static_cast<qsizetype>(changes.size()), most + 3);
    }
}

TEST(RowChanges, whatIsInBothListsStays)
{
    std::vector<RecipePtr> recipes;
    for (int i = 0; i < 4; ++i)
        recipes.push_back(std::make_shared<Recipe>(RecipeDraft{}, Instant{}));
    const auto& [a, b, c, d] = std::tie(recipes[0], recipes[1], recipes[2], recipes[3]);
    EXPECT_EQ(rowChanges({a, b, c}, {a, c, d}),
              (std::vector<RowChange>{{RowChange::Remove, 1, 1, 0}, {RowChange::Insert, 2, 1, 2}}));
    EXPECT_TRUE(rowChanges({a, b}, {a, b}).empty());
}

} // namespace
