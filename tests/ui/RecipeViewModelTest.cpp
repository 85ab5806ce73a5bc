#include "ui/recipe/RecipeViewModel.h"

#include "ui/images/RecipePhotos.h"
#include "ui/support/Library.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <gtest/gtest.h>

using namespace ovrin;

namespace {

RecipeDraft lasagna()
{
    RecipeDraft draft;
    draft.title = u"Lasagna"_qs;
    draft.publisher = u"Casa Emilia"_qs;
    draft.author = u"Ada Bruni"_qs;
    draft.yield = u"12 servings"_qs;
    draft.totalMinutes = 90;
    draft.ingredients = {u"1 onion"_qs, u"For the sauce:"_qs, u"½ cup <b>flour</b>"_qs, u"salt"_qs};
    draft.steps = {{QUuid::createUuid(), std::nullopt, {u"Fry the onion, 5 minutes."_qs, u"More onion."_qs}},
                   {QUuid::createUuid(), u"Sauce"_qs, {u"Add <script> & \"flour\"."_qs}}};
    return draft;
}

class RecipeViewModelTest : public testing::Test
{
protected:
    Library library;
    RecipePhotos photos{library.store()};
    RecipeViewModel view{library.store(), photos, QLocale::c()};
    QAbstractItemModelTester ingredientsTester{view.ingredients(),
                                               QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester directionsTester{view.directions(),
                                              QAbstractItemModelTester::FailureReportingMode::Fatal};
    RecipePtr recipe = library.add(lasagna());

    QStringList ingredients(int role)
    {
        QStringList lines;
        for (int row = 0; row < view.ingredients()->rowCount(); ++row)
            lines << view.ingredients()->index(row).data(role).toString();
        return lines;
    }
};

TEST_F(RecipeViewModelTest, scalesLinesAndYieldButNeitherHeadingsNorDirections)
{
    view.show(recipe);
    EXPECT_EQ(view.facts(), u"Total Time: 1 hr 30 min  ·  12 servings"_qs);
    EXPECT_EQ(view.scaleNotice(), QString());
    QSignalSpy changed(view.ingredients(), &QAbstractItemModel::dataChanged);
    QSignalSpy removed(view.ingredients(), &QAbstractItemModel::rowsRemoved);
    view.setScale(1.5);
    EXPECT_EQ(recipe->scale(), 1.5);
    EXPECT_EQ(view.facts(), u"Total Time: 1 hr 30 min  ·  18 servings"_qs);
    EXPECT_EQ(view.scaleNotice(), u"Amounts scaled 1½×. Directions show the original amounts."_qs);
    EXPECT_EQ(ingredients(IngredientList::TextRole),
              QStringList({u"1½ onion"_qs, u"For the sauce:"_qs, u"¾ cup <b>flour</b>"_qs, u"salt"_qs}));
    EXPECT_EQ(changed.size(), 2) << "only the lines that read differently";
    EXPECT_TRUE(removed.isEmpty());
    EXPECT_EQ(view.groceryLines().size(), 3);
    view.setScale(7);
    EXPECT_EQ(view.scale(), 1.5) << "no such choice";
}

TEST_F(RecipeViewModelTest, openingStartsAtTheRecipesOwnAmounts)
{
    recipe->setScale(3);
    QSignalSpy changed(&library.store(), &RecipeStore::changed);
    view.show(recipe);
    EXPECT_EQ(recipe->scale(), 1);
    EXPECT_EQ(changed.size(), 1);
    view.show(nullptr);
    view.show(recipe);
    EXPECT_EQ(changed.size(), 1) << "written only when it was not 1";
}

TEST_F(RecipeViewModelTest, showsMarkupAsText)
{
    view.show(recipe);
    EXPECT_EQ(ingredients(IngredientList::RichTextRole).at(2), u"<b>½</b> cup &lt;b&gt;flour&lt;/b&gt;"_qs);
    const QString html = view.directions()->richText(2, u"#000"_qs, u"#f00"_qs, u"#ff0"_qs, -1);
    EXPECT_FALSE(html.contains(u"<script"_qs)) << qPrintable(html);
    EXPECT_TRUE(html.startsWith(u"Add &lt;script&gt; &amp; &quot;"_qs)) << qPrintable(html);
}

TEST_F(RecipeViewModelTest, marksFirstMentionsAndTimes)
{
    view.show(recipe);
    DirectionList& directions = *view.directions();
    ASSERT_EQ(directions.rowCount(), 3);
    EXPECT_EQ(directions.index(0).data(DirectionList::StepNumberRole), 1);
    EXPECT_EQ(directions.index(1).data(DirectionList::StepNumberRole), 0);
    EXPECT_EQ(directions.index(2).data(DirectionList::StepNumberRole), 2);
    EXPECT_EQ(directions.index(2).data(DirectionList::StepTitleRole), u"Sauce"_qs);
    const auto links = directions.rows().at(0).paragraph.links();
    ASSERT_EQ(links.size(), 2);
    EXPECT_EQ(ingredientOf(links.at(0).address), 0);
    EXPECT_EQ(links.at(1).address, u"ovrin-timer://start?seconds=300&label=5%20minutes"_qs);
    EXPECT_TRUE(directions.rows().at(1).paragraph.links().isEmpty());
    EXPECT_TRUE(
        directions.richText(0, u"#000"_qs, u"#f00"_qs, u"#ff0"_qs, 1).contains(u"background-color:#ff0"_qs));
    EXPECT_EQ(directions.richText(99, {}, {}, {}, 0), QString());
}

TEST_F(RecipeViewModelTest, followsTheRecordAndItsEnd)
{
    view.show(recipe);
    QSignalSpy changed(&view, &RecipeViewModel::changed);
    QSignalSpy gone(&view, &RecipeViewModel::gone);
    view.recordCook();
    view.recordCook();
    view.toggleSaved();
    EXPECT_EQ(view.cookedLabel(), u"Cooked 2×"_qs);
    EXPECT_TRUE(view.isSaved());
    EXPECT_EQ(changed.size(), 3);
    RecipeDraft edited = recipe->draft();
    edited.ingredients = {u"2 leeks"_qs};
    recipe->apply(edited);
    EXPECT_EQ(ingredients(IngredientList::TextRole), QStringList({u"2 leeks"_qs}));
    library.store().remove(recipe);
    EXPECT_EQ(gone.size(), 1);
    EXPECT_FALSE(view.isShown());
    EXPECT_EQ(view.ingredients()->rowCount(), 0);
}

} // namespace
