#include "PagePicture.h"

#include "import/document/DraftDoubts.h"
#include "import/document/DrawnOrder.h"
#include "import/document/RecipeTextParser.h"

#include <gmock/gmock.h>

using namespace ovrin;

namespace {

/// The lines of a page picture, drawn in the order in which `texts` has them.
QList<TextLine> drawn(const char* picture, const QStringList& texts)
{
    QList<TextLine> lines = pagePicture(picture);
    for (TextLine& line : lines) {
        line.drawn = static_cast<int>(texts.indexOf(line.text));
        EXPECT_GE(line.drawn, 0) << line.text.toStdString();
    }
    return lines;
}

QStringList listed(const char* texts)
{
    return QString::fromUtf8(texts).split(u'/');
}

QStringList textsOf(const QList<TextLine>& lines)
{
    QStringList texts;
    for (const TextLine& line : lines) {
        texts.append(line.text);
    }
    return texts;
}

const char* const worksheet = "Name:            Class:           Date:\n"
                              "\n"
                              "Onion Soup\n"
                              "Ingredients\n"
                              "3 onions               1 l stock\n"
                              "1 tbsp butter          Salt\n"
                              "\n"
                              "Method\n"
                              "Brown the onions in the butter.\n"
                              "Add the stock and boil it.\n";

} // namespace

TEST(DrawnOrder, ReadsEachPartToItsEnd)
{
    const QStringList order =
        listed("Name:/Class:/Date:/Onion Soup/Ingredients/3 onions/1 tbsp butter/1 l stock/Salt/Method/"
               "Brown the onions in the butter./Add the stock and boil it.");
    EXPECT_EQ(textsOf(DrawnOrder::regrouped(drawn(worksheet, order))), order);
}

TEST(DrawnOrder, BeginsWithTheTitleWheneverItIsDrawn)
{
    QList<TextLine> lines = drawn("                 Onion Soup\n"
                                  "3 onions                       Brown the onions in the butter.\n"
                                  "1 l stock                      Add the stock and boil it.\n",
                                  listed("3 onions/1 l stock/Brown the onions in the butter./"
                                         "Add the stock and boil it./Onion Soup"));
    lines.first().relativeHeight = 1.3;
    EXPECT_EQ(textsOf(DrawnOrder::regrouped(lines)).first(), u"Onion Soup");
}

TEST(DrawnOrder, PutsWhatIsDrawnLastWhereItStands)
{
    const QStringList order =
        listed("Name:/Class:/Date:/Onion Soup/Ingredients/Method/Brown the onions in the butter./"
               "Add the stock and boil it./3 onions/1 tbsp butter/1 l stock/Salt");
    EXPECT_EQ(textsOf(DrawnOrder::regrouped(drawn(worksheet, order))),
              listed("Name:/Class:/Date:/Onion Soup/Ingredients/3 onions/1 tbsp butter/1 l stock/Salt/Method/"
                     "Brown the onions in the butter./Add the stock and boil it."));
}

TEST(DrawnOrder, JoinsAmountsAndKeepsColumnsFromReachingIntoEachOther)
{
    const QList<TextLine> lines =
        DrawnOrder::regrouped(drawn("Stock                     Boil the stock and stir in\n"
                                    "200 g      Flour          the flour.\n",
                                    listed("Stock/200 g/Flour/Boil the stock and stir in/the flour.")));
    EXPECT_EQ(textsOf(lines), listed("Stock/200 g Flour/Boil the stock and stir in/the flour."));
    EXPECT_LT(lines[1].columnRight, lines[2].place.left());
}

TEST(DrawnOrder, JoinsAmountsWithWhatStandsBelowThem)
{
    const QList<TextLine> lines = DrawnOrder::regrouped(drawn("1 cup           1           2\n"
                                                              "flour           egg         ripe bananas\n",
                                                              listed("1 cup/flour/1/egg/2/ripe bananas")));
    EXPECT_EQ(textsOf(lines), listed("1 cup flour/1 egg/2 ripe bananas"));
}

TEST(DrawnOrder, LeavesRoomForNotesBesideTheMethod)
{
    // Nothing stands below the second heading but blank lines to write on.
    const RecipeDraft draft = RecipeTextParser::parse(drawn(
        "Onion Soup\n"
        "\n"
        "Ingredients\n"
        "3 onions\n"
        "1 l stock\n"
        "\n"
        "Method                                                      Notes\n"
        "1 Brown the onions slowly in butter.\n"
        "2 Add the stock and boil everything.\n",
        listed("Onion Soup/Ingredients/3 onions/1 l stock/Method/Notes/1 Brown the onions slowly in butter./"
               "2 Add the stock and boil everything.")));
    EXPECT_EQ(draft.ingredients, listed("3 onions/1 l stock"));
    EXPECT_EQ(draft.steps.size(), 2);
}

TEST(DrawnOrder, IsTakenWhereThePlacesMislead)
{
    // The headings and the list below them stand on two sides of the page.
    QList<TextLine> lines =
        drawn("Name:                        Class:            Date:\n"
              "\n"
              "                             Apple Chicken\n"
              "Serves 4\n"
              "\n"
              "What you need\n"
              "                       Chicken breast\n"
              "                       Onions\n"
              "                       Apples\n"
              "                       One glass of wine or cognac\n"
              "\n"
              "Method\n"
              "  1 Mix the chicken with salt.\n"
              "  2 Put the chicken, onions and apples into the oven.\n",
              listed("Name:/Class:/Date:/Apple Chicken/Serves 4/What you need/Chicken breast/"
                     "Onions/Apples/One glass of wine or cognac/Method/"
                     "1 Mix the chicken with salt./"
                     "2 Put the chicken, onions and apples into the oven."));
    lines[3].relativeHeight = 1.6;
    const RecipeDraft draft = RecipeTextParser::parse(lines);
    EXPECT_EQ(draft.title, QStringLiteral("Apple Chicken"));
    EXPECT_EQ(draft.ingredients, listed("Chicken breast/Onions/Apples/One glass of wine or cognac"));
}

TEST(DrawnOrder, IsNotTakenWhereItIsNone)
{
    // The right column's lines were drawn between those of the left one.
    const char* const picture = "Onion Soup\n"
                                "\n"
                                "Ingredients                 Method\n"
                                "3 onions                    Brown the onions in the\n"
                                "1 tbsp butter               butter. Add the stock\n"
                                "1 l stock                   and boil everything\n"
                                "Salt                        for half an hour.\n";
    const QStringList order =
        listed("Onion Soup/Ingredients/Method/3 onions/Brown the onions in the/1 tbsp butter/"
               "butter. Add the stock/1 l stock/and boil everything/Salt/for half an hour.");
    const RecipeDraft draft = RecipeTextParser::parse(drawn(picture, order));
    EXPECT_EQ(draft.ingredients, listed("3 onions/1 tbsp butter/1 l stock/Salt"));
    ASSERT_EQ(draft.steps.size(), 1);
    EXPECT_EQ(draft.steps.first().paragraphs.join(u' '),
              QStringLiteral(
                  "Brown the onions in the butter. Add the stock and boil everything for half an hour."));
}

TEST(DraftDoubts, GrowWhereTheMethodsNumbersGoOnElsewhere)
{
    const auto withLeftOver = [](const char* text) {
        const QList<TextLine> method = pagePicture("1. Slice the onions thinly.\n"
                                                   "2. Brown them in the butter.\n");
        const QList<TextLine> leftOver = pagePicture(text);
        RecipeOutline parts;
        parts.head = leftOver;
        parts.directions = method;
        return doubtsAbout({}, parts, method + leftOver);
    };
    EXPECT_GT(withLeftOver("3. Add the stock and boil."), withLeftOver("9. Add the stock and boil."));
    EXPECT_EQ(withLeftOver("3 onions"), withLeftOver("9 onions"));
}
