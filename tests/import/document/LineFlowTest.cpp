#include "PagePicture.h"

#include "import/document/LineFlow.h"
#include "import/document/PageColumns.h"
#include "import/document/RecipeItems.h"
#include "import/document/RecipeTextParser.h"

using namespace ovrin;

namespace {

struct FlowCase
{
    const char* name;
    const char* picture;
    /// A letter a line: b begins, c continues, ? unknown.
    const char* verdicts;
};

class LineFlowOf : public testing::TestWithParam<FlowCase>
{
};

} // namespace

TEST_P(LineFlowOf, TellsWhereEntriesBegin)
{
    const QList<TextLine> lines = PageColumns::regrouped(pagePicture(GetParam().picture));
    const LineFlow flow(lines);
    std::string verdicts;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        verdicts += flow.verdict(i) == LineFlow::Verdict::Begins      ? 'b'
                    : flow.verdict(i) == LineFlow::Verdict::Continues ? 'c'
                                                                      : '?';
    }
    EXPECT_EQ(verdicts, GetParam().verdicts);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lists, LineFlowOf, testing::Values(
    FlowCase{"HangingIndent",
        "1 (46 fluid ounce) bottle tomato-\n"
        "   vegetable juice\n"
        "Parsley\n"
        "2 cups of flour, and more of it\n"
        "   for dusting\n",
        "bcbbc"},
    FlowCase{"GroupsSetIn",
        "Dough\n"
        "   200 g flour of the finest kind\n"
        "   1 egg\n"
        "Filling\n"
        "   Apples\n",
        "b????"},
    FlowCase{"NamesWithoutAnAmountBesideIt",
        "1          bottle of lemon juice\n"
        "           Worcestershire sauce\n"
        "           salt\n"
        "Stir the juice into the sauce, and season it with salt before you serve\n",
        "b???"},
    FlowCase{"FirstLinesSetIn",
        "Cut the onion into small cubes and\n"
        "fry them.\n"
        "   Boil everything for as long as it\n"
        "takes.\n"
        "   Eat.\n",
        "bcbcb"},
    FlowCase{"NoHabit",
        "200 g flour\n"
        "1 egg\n"
        "Milk\n",
        "b??"}),
    [](const auto& drawn) { return std::string(drawn.param.name); });
// clang-format on

TEST(LineFlow, TellsEntriesApartByTheBlankSpaceBetweenThem)
{
    QList<TextLine> lines;
    double y = 0.1;
    for (const auto& [text, gap] : {std::pair("2 cups of flour, and more of it", 0.0),
                                    {"for dusting", 0.02},
                                    {"Parsley", 0.025},
                                    {"1 bottle of juice of tomatoes and", 0.025},
                                    {"carrots", 0.02}}) {
        y += gap;
        const QString line = QString::fromUtf8(text);
        lines.append({line, false, 1, 0, {0.1, y, static_cast<double>(line.size()) * 0.01, 0.015}, 0.45});
    }
    const LineFlow flow(lines);
    using enum LineFlow::Verdict;
    const std::vector expected{Begins, Continues, Begins, Begins, Continues};
    for (qsizetype i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(flow.verdict(i), expected[static_cast<std::size_t>(i)]) << lines[i].text.toStdString();
    }
}

TEST(LineFlow, LetsAMethodGoOnInItsOwnColumnOnTheNextPage)
{
    const QList<TextLine> lines = pagePicture("Soup\n"
                                              "\n"
                                              "Method                         Ingredients\n"
                                              "1. Cut the onion.              1 onion\n"
                                              "2. Boil the onion in           2 carrots\n"
                                              "water that is hot and          1 l water\n") +
                                  pagePicture("salted.\n"
                                              "3. Serve with bread.\n",
                                              1);
    const RecipeDraft draft = RecipeTextParser::parse(lines);
    EXPECT_EQ(draft.ingredients.join(u'/'), u"1 onion/2 carrots/1 l water");
    ASSERT_EQ(draft.steps.size(), 3);
    EXPECT_EQ(draft.steps[1].paragraphs.join(u'/'), u"Boil the onion in water that is hot and salted.");
}

struct RecipePage
{
    const char* name;
    const char* picture;
    const char* ingredients;
    const char* steps;
};

class RecipesWithoutHeadings : public testing::TestWithParam<RecipePage>
{
};

TEST_P(RecipesWithoutHeadings, AreFoundByTheirPlaces)
{
    const RecipeDraft draft = RecipeTextParser::parse(pagePicture(GetParam().picture));
    QStringList steps;
    for (const RecipeStep& step : draft.steps) {
        steps += step.paragraphs;
    }
    EXPECT_EQ(draft.ingredients.join(u'/').toStdString(), GetParam().ingredients);
    EXPECT_EQ(steps.join(u'/').toStdString(), GetParam().steps);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Pages, RecipesWithoutHeadings, testing::Values(
    RecipePage{"ListAtTheRightOfANumberedMethod",
        "Soup\n"
        "\n"
        "1 Heat the oil in a large pot.                    2 carrots\n"
        "2 Add the carrots and let them                    1 l stock\n"
        "  simmer.                                         Oil\n"
        "3 Pour in the stock. Serve.\n",
        "2 carrots/1 l stock/Oil",
        "Heat the oil in a large pot./Add the carrots and let them simmer./Pour in the stock. Serve."},
    RecipePage{"WordsWithCapitalsInANarrowColumn",
        "Meatballs\n"
        "\n"
        "2 large Green Bell      Cut the peppers into small cubes and fry\n"
        "Peppers                 them in the butter until they are soft.\n"
        "1 cup Panko Bread       Add all of the crumbs and the spice.\n"
        "1 small Onion\n"
        "1 tbsp Indian Spice\n"
        "Blend\n"
        "2 tbsp Butter\n"
        "Oil\n",
        "2 large Green Bell Peppers/1 cup Panko Bread/1 small Onion/1 tbsp Indian Spice Blend/2 tbsp Butter/"
        "Oil",
        "Cut the peppers into small cubes and fry them in the butter until they are soft. "
        "Add all of the crumbs and the spice."},
    RecipePage{"FactsAboveTheHeadingsOfTwoColumns",
        "Coffee\n"
        "\n"
        " Prep time 5 min    Cook time 5 min   Servings 1    Total time 10 min\n"
        "\n"
        "Ingredients                     Directions\n"
        "1 cup of coffee                 1. Pour the coffee into a mug.\n"
        "1 dash of nutmeg                2. Add the nutmeg.\n",
        "1 cup of coffee/1 dash of nutmeg",
        "Pour the coffee into a mug./Add the nutmeg."},
    RecipePage{"CommentsBelowAMethodInTwoColumns",
        "Soup\n"
        "\n"
        "Ingredients\n"
        "2 carrots\n"
        "1 l stock\n"
        "\n"
        "Method\n"
        "Heat the oil in a large pot        simmer for an hour.\n"
        "until it is hot. Peel and cut      Season. Serve with\n"
        "the carrots. Let them              bread.\n"
        "\n"
        "Comments (2)\n"
        "Ruth\n"
        "We liked it.\n",
        "2 carrots/1 l stock",
        "Heat the oil in a large pot until it is hot. Peel and cut the carrots. Let them "
        "simmer for an hour. Season. Serve with bread."},
    RecipePage{"MethodThatGoesOnBelowAListBesideIt",
        "Soup\n"
        "\n"
        "Method                             Ingredients\n"
        "Heat the oil in a large pot.       2 carrots\n"
        "Add the carrots.                   1 l stock\n"
        "Pour in the stock and let it simmer for as long as it takes.\n"
        "Season it with salt and serve it with a slice of bread.\n",
        "2 carrots/1 l stock",
        "Heat the oil in a large pot./Add the carrots./"
        "Pour in the stock and let it simmer for as long as it takes./"
        "Season it with salt and serve it with a slice of bread."},
    RecipePage{"AmountsAtTheRightEdgeOfTheirColumn",
        "Sauce\n"
        "\n"
        "Ingredients                  Method\n"
        "700 g tomatoes in pieces     Chop the onion into a pot.\n"
        "    6 spoons of tomato       Add the tomatoes and all the rest,\n"
        "      concentrate            and let it boil for as long as it\n"
        "  0.5 spoon sugar            takes.\n"
        "    1 spoon of fine and      Serve it with pasta.\n"
        "      fresh thyme\n",
        "700 g tomatoes in pieces/6 spoons of tomato concentrate/0.5 spoon sugar/1 spoon of fine and fresh thyme",
        "Chop the onion into a pot./"
        "Add the tomatoes and all the rest, and let it boil for as long as it takes./Serve it with pasta."},
    RecipePage{"NamesAloneInTheBlockOfTheDirections",
        "Soup\n"
        "Leeks\n"
        "Salt\n"
        "Olive oil\n"
        "Cut the leeks into rings and wash them well. Warm the oil.\n"
        "Add the leeks and the salt and let all of it simmer.\n",
        "Leeks/Salt/Olive oil",
        "Cut the leeks into rings and wash them well. Warm the oil./"
        "Add the leeks and the salt and let all of it simmer."},
    RecipePage{"AmountsSpelledOut",
        "Pudding\n"
        "\n"
        "Three eggs.\n"
        "A quarter of a pound of powdered white sugar.\n"
        "A table-spoonful of white wine and brandy, mixed.\n"
        "\n"
        "Beat the eggs with the sugar until they are light. Pour in the wine.\n",
        "Three eggs./A quarter of a pound of powdered white sugar./"
        "A table-spoonful of white wine and brandy, mixed.",
        "Beat the eggs with the sugar until they are light. Pour in the wine."},
    RecipePage{"AmountsBehindNamesInTwoMeasures",
        "Carbonara\n"
        "\n"
        "Spaghetti: 320 g | 11 oz\n"
        "Guanciale, cubed: 150 g | 5 oz\n"
        "Pecorino: 80 g (3 oz)\n"
        "\n"
        "Fry the guanciale until it is crisp. Boil the spaghetti and mix.\n",
        "Spaghetti: 320 g | 11 oz/Guanciale, cubed: 150 g | 5 oz/Pecorino: 80 g (3 oz)",
        "Fry the guanciale until it is crisp. Boil the spaghetti and mix."},
    RecipePage{"ListBesideANumberedMethodWithWrappedLines",
        "Patties\n"
        "\n"
        "1 Form patties with the beef, you              1 lb beef\n"
        "  need no oil.                                 Onion, chopped\n"
        "2 Place them in a pan on a hot                 Garlic, chopped\n"
        "  stove.\n"
        "3 Add salt and pepper.\n",
        "1 lb beef/Onion, chopped/Garlic, chopped",
        "Form patties with the beef, you need no oil./Place them in a pan on a hot stove./"
        "Add salt and pepper."},
    RecipePage{"MethodBesideAListWithAHeading",
        "Soup\n"
        "\n"
        "1 Heat the oil in a large pot.                    Ingredients\n"
        "2 Add the carrots and let them                    2 carrots\n"
        "  simmer.                                         A stock of bones and herbs, strained.\n"
        "3 Pour in the stock. Serve.                       Oil\n",
        "2 carrots/A stock of bones and herbs, strained./Oil",
        "Heat the oil in a large pot./Add the carrots and let them simmer./Pour in the stock. Serve."},
    RecipePage{"ListWithoutAmountsInItsOwnColumn",
        "Soup\n"
        "\n"
        "Carrots                  Heat the oil in a large pot until it shimmers.\n"
        "Stock                    Add the carrots and let them simmer in the\n"
        "Oil                      stock until they are soft.\n",
        "Carrots/Stock/Oil",
        "Heat the oil in a large pot until it shimmers. "
        "Add the carrots and let them simmer in the stock until they are soft."},
    RecipePage{"NamesAndAmountsAtEitherEdge",
        "Soup\n"
        "\n"
        "carrots                      2\n"
        "stock                        1 l\n"
        "oil                          3 tbsp\n"
        "\n"
        "Heat the oil in a large pot until it shimmers. Add the carrots.\n",
        "carrots 2/stock 1 l/oil 3 tbsp",
        "Heat the oil in a large pot until it shimmers. Add the carrots."}),
    [](const auto& drawn) { return std::string(drawn.param.name); });
// clang-format on

TEST(RecipePages, PassOverTheChapterThatARecipeStandsIn)
{
    QList<TextLine> lines = pagePicture("1 Desserts\n"
                                        "\n"
                                        "1.1 Cream\n"
                                        "\n"
                                        "200 ml cream\n"
                                        "20 g sugar\n"
                                        "\n"
                                        "Whip the cream with the sugar until it is stiff.\n"
                                        "\n"
                                        "\n"
                                        "1.2 Jelly\n"
                                        "\n"
                                        "200 ml juice\n"
                                        "20 g gelatine\n"
                                        "\n"
                                        "Boil the juice with the gelatine until it is dissolved.\n");
    for (TextLine& line : lines) {
        if (line.text.startsWith(u"1")) {
            line.relativeHeight = line.text.startsWith(u"1 ") ? 2 : 1.7;
            line.place.setTop(line.place.bottom() - line.place.height() * line.relativeHeight);
        }
    }
    const RecipeTextParser::Result result = RecipeTextParser::parseFirst(lines);
    EXPECT_EQ(result.draft.title, u"Cream");
    EXPECT_EQ(result.draft.ingredients.join(u'/'), u"200 ml cream/20 g sugar");
}

TEST(RecipePages, EndWhereTheNextMethodHasATitleOfItsOwn)
{
    QList<TextLine> lines = pagePicture("Egg Soup\n"
                                        "\n"
                                        "2 eggs\n"
                                        "1 l stock\n"
                                        "\n"
                                        "Method\n"
                                        "Boil the eggs in the stock.\n"
                                        "\n"
                                        "Leek Soup\n"
                                        "\n"
                                        "3 leeks\n"
                                        "1 l stock\n"
                                        "\n"
                                        "Method\n"
                                        "Boil the leeks.\n");
    for (TextLine& line : lines) {
        line.relativeHeight = line.text.endsWith(u"Soup") ? 2 : 1;
    }
    const RecipeTextParser::Result result = RecipeTextParser::parseFirst(lines);
    EXPECT_TRUE(result.hasMoreRecipes);
    EXPECT_EQ(result.draft.ingredients.join(u'/'), u"2 eggs/1 l stock");
    ASSERT_EQ(result.draft.steps.size(), 1);
    EXPECT_EQ(result.draft.steps[0].paragraphs.join(u'/'), u"Boil the eggs in the stock.");
}

TEST(RecipePages, AreLookedAtUpToALimitOfLines)
{
    QList<TextLine> lines(24000, TextLine{QStringLiteral("1 egg")});
    EXPECT_LE(RecipeTextParser::parse(lines).ingredients.size(), 3000);
}

TEST(LineFlow, TellsEntriesByAFewHairsMoreThanALineHas)
{
    // Heights of 0.01; within an entry the lines stand 0.0125 apart, entries 0.0136 apart.
    const std::pair<const char*, double> drawn[] = {{"beef brisket with its fat left on, in", 0.0125},
                                                    {"cubes", 0.0136},
                                                    {"butter", 0.0136},
                                                    {"cloves (not garlic cloves, just cloves)", 0.0136},
                                                    {"juniper berries", 0.0136},
                                                    {"brown beer of a kind that has a strong", 0.0125},
                                                    {"taste", 0}};
    QList<TextLine> lines;
    double y = 0.1;
    for (const auto& [words, step] : drawn) {
        const QString text = QString::fromUtf8(words);
        const QRectF place(0.1, y, 0.01 * static_cast<double>(text.size()), 0.01);
        lines.append({text, lines.isEmpty(), 1, 0, place, 0.5});
        y += step;
    }
    EXPECT_EQ(RecipeItems::ingredients(lines).join(u'/'),
              QStringLiteral("beef brisket with its fat left on, in cubes/butter/"
                             "cloves (not garlic cloves, just cloves)/juniper berries/"
                             "brown beer of a kind that has a strong taste"));
}

TEST(LineFlow, LetsAColonAtALinesEndHeadAGroupOnlyWhereNoRestFollows)
{
    const QStringList entries =
        RecipeItems::ingredients(PageColumns::regrouped(pagePicture("2 cups of flour, as fine as you have\n"
                                                                    "1 cup of the herbs of your own choice:\n"
                                                                    "   parsley and cumin\n"
                                                                    "For the sauce:\n"
                                                                    "1 egg")));
    EXPECT_EQ(entries.size(), 4);
    EXPECT_EQ(entries.value(1), u"1 cup of the herbs of your own choice: parsley and cumin");
    EXPECT_EQ(entries.value(2), u"For the sauce:");
}
