#include "import/document/RecipeTextParser.h"

using namespace ovrin;
using testing::ElementsAre;

namespace {

/// Lines as they come from a page: "# " in front of a line sets it in title type, an empty line is a gap.
QList<TextLine> page(const char* utf8)
{
    QList<TextLine> lines;
    for (TextLine line : TextLines::fromPlainText(QString::fromUtf8(utf8).trimmed())) {
        if (line.text.startsWith(u"# ")) {
            line.text = line.text.mid(2);
            line.relativeHeight = 2;
        }
        if (!line.text.isEmpty()) {
            lines.append(line);
        }
    }
    return lines;
}

std::vector<std::string> texts(const QStringList& list)
{
    std::vector<std::string> texts;
    for (const QString& text : list) {
        texts.push_back(text.toStdString());
    }
    return texts;
}

std::vector<std::string> stepTexts(const RecipeDraft& draft)
{
    std::vector<std::string> texts;
    for (const RecipeStep& step : draft.steps) {
        texts.push_back(step.paragraphs.join(u" / ").toStdString());
    }
    return texts;
}

} // namespace

TEST(RecipeTextParser, ReadsAPageWithHeadingsAndWrappedLines)
{
    const auto draft = RecipeTextParser::parse(page(R"(
9:41
# Lentil Soup with
# Lemon
By Marian Holt
Save   Print   Share
Serves 4
A bowl of comfort that asks for little more than the larder holds.

INGREDIENTS
2 tablespoons olive oil
1 lemon, half of it juiced and the other half cut into
wedges for serving
Salt

METHOD
1. Warm the oil in a pot over medium-
high heat.
2. Add everything and simmer for
20 minutes.
12
)"));
    EXPECT_EQ(draft.title, u"Lentil Soup with Lemon");
    EXPECT_EQ(draft.author, u"Marian Holt");
    EXPECT_EQ(draft.yield, u"4");
    EXPECT_EQ(draft.summary, u"A bowl of comfort that asks for little more than the larder holds.");
    EXPECT_THAT(texts(draft.ingredients),
                ElementsAre("2 tablespoons olive oil",
                            "1 lemon, half of it juiced and the other half cut into wedges for serving",
                            "Salt"));
    EXPECT_THAT(stepTexts(draft), ElementsAre("Warm the oil in a pot over medium-high heat.",
                                              "Add everything and simmer for 20 minutes."));
}

TEST(RecipeTextParser, FindsTheListsWithoutHeadings)
{
    const auto draft = RecipeTextParser::parse(page(R"(
# Apple Cake
A cake for the afternoon, and for the morning after
it as well.

250 g butter
200 g sugar
4 eggs
Salt
Heat the oven to 180 degrees and line a tin with paper before you begin
with the batter.

Beat butter and sugar, add the eggs and bake for 40 minutes.
)"));
    EXPECT_THAT(texts(draft.ingredients), ElementsAre("250 g butter", "200 g sugar", "4 eggs", "Salt"));
    EXPECT_THAT(
        stepTexts(draft),
        ElementsAre(
            "Heat the oven to 180 degrees and line a tin with paper before you begin with the batter.",
            "Beat butter and sugar, add the eggs and bake for 40 minutes."));
}

TEST(RecipeTextParser, KeepsGroupsOfIngredientsAndDropsNotesAndFurniture)
{
    const auto draft = RecipeTextParser::parse(page(R"(
# The Copper Ladle
Home   Recipes   About
# Fish Pie
★★★★☆ 4.8 (120 reviews)
Ingredients
For the filling
• 1 lb fish
• 1o0 ml milk
TOPPING
• 2 lb potatoes,
peeled
Directions
Step 1
Poach the fish.
Step 2
Mash the potatoes.
Notes
Freezes well.
Nutrition
412 kcal
https://www.thecopperladle.example/fish-pie
)"));
    EXPECT_EQ(draft.title, u"Fish Pie");
    EXPECT_EQ(draft.publisher, u"The Copper Ladle");
    EXPECT_THAT(texts(draft.ingredients), ElementsAre("For the filling:", "1 lb fish", "100 ml milk",
                                                      "TOPPING:", "2 lb potatoes, peeled"));
    EXPECT_THAT(stepTexts(draft), ElementsAre("Poach the fish.", "Mash the potatoes."));
}

TEST(RecipeTextParser, ReadsBarePlainAndNumberedSteps)
{
    const auto steps = [](const char* method) {
        const auto head = std::string("# Tea\nIngredients\n1 cup water\n1 tsp tea\nMethod\n");
        return stepTexts(RecipeTextParser::parse(page((head + method).c_str())));
    };
    EXPECT_THAT(steps("1  Boil the water\nslowly.\n2  Add the tea."),
                ElementsAre("Boil the water slowly.", "Add the tea."));
    EXPECT_THAT(steps("- Boil the water.\n- Add the\ntea."), ElementsAre("Boil the water.", "Add the tea."));
    EXPECT_THAT(steps("Boil the water.\nAdd the tea.\nServe it hot."),
                ElementsAre("Boil the water.", "Add the tea.", "Serve it hot."));
    EXPECT_THAT(steps("1. Boil the water.\nFor the infusion:\n1. Add the tea.\n2. Wait."),
                ElementsAre("Boil the water.", "Add the tea.", "Wait."));
}

TEST(RecipeTextParser, FindsAListWithoutAmountsByItsBlock)
{
    const auto draft = RecipeTextParser::parse(page(R"(
# Baked Trout
A dish for the evening after a long day at the river.

Cleaned trout
bacon
butter

Wrap each fish in a slice of bacon and lay it into a dish.
Dot it with butter and bake it for 20 minutes.
)"));
    EXPECT_THAT(texts(draft.ingredients), ElementsAre("Cleaned trout", "bacon", "butter"));
    EXPECT_EQ(draft.steps.size(), 2);
}

TEST(RecipeTextParser, FindsTheListAboveTheHeadingOfTheMethod)
{
    const auto draft =
        RecipeTextParser::parse(page("# Trout\nA dish for the evening after a long day out.\n\nCleaned "
                                     "trout\nbacon\n2 eggs\n\nMethod\nWrap and bake."));
    EXPECT_THAT(texts(draft.ingredients), ElementsAre("Cleaned trout", "bacon", "2 eggs"));
    EXPECT_THAT(texts(RecipeTextParser::parse(page("# Trout\nMethod\nWrap and bake it.")).ingredients),
                ElementsAre());
    EXPECT_THAT(texts(RecipeTextParser::parse(page("Method\nWrap and bake it.")).ingredients), ElementsAre());
}

TEST(RecipeTextParser, TakesNoRestOfASentenceForAHeading)
{
    const auto draft = RecipeTextParser::parse(page(R"(
# Muffins
Ingredients
2 cups flour
1 egg
Directions
1. Whisk together the dry
ingredients: flour, sugar and salt.
2. Add the egg.

A note that stands apart behind the last step.
)"));
    EXPECT_THAT(texts(draft.ingredients), ElementsAre("2 cups flour", "1 egg"));
    EXPECT_THAT(stepTexts(draft),
                ElementsAre("Whisk together the dry ingredients: flour, sugar and salt.", "Add the egg."));
}

TEST(RecipeTextParser, TellsListsInLowerCaseFromWrappedLines)
{
    const auto ingredients = [](const char* list) {
        return texts(RecipeTextParser::parse(
                         page((std::string("# X\nIngredients\n") + list + "\nMethod\nGo.").c_str()))
                         .ingredients);
    };
    EXPECT_THAT(ingredients("white wine: 350ml | 1 1/2 cup\nbutter\nsmoked bacon: 250g\nolive oil"),
                ElementsAre("white wine: 350ml | 1 1/2 cup", "butter", "smoked bacon: 250g", "olive oil"));
    EXPECT_THAT(
        ingredients("250 g red lentils, rinsed and picked over\nfor small stones\n1 onion\n2 carrots"),
        ElementsAre("250 g red lentils, rinsed and picked over for small stones", "1 onion", "2 carrots"));
    EXPECT_THAT(
        ingredients("3 łyżki śmietany\nsól\n1 can (14 oz or\n400 g) tomatoes\n1 kg beef, about 2\n1/4 lb"),
        ElementsAre("3 łyżki śmietany", "sól", "1 can (14 oz or 400 g) tomatoes",
                    "1 kg beef, about 2 1/4 lb"));
}

TEST(RecipeTextParser, TakesTheFirstOfSeveralRecipes)
{
    const auto result = RecipeTextParser::parseFirst(page(R"(
# Green Sauce

Ingredients
1 bunch parsley
2 eggs
Method
Chop the parsley and mix it with the eggs.

# Red Sauce

Ingredients
4 tomatoes
1 onion
Method
Cook it down.
)"));
    EXPECT_TRUE(result.hasMoreRecipes);
    EXPECT_EQ(result.draft.title, u"Green Sauce");
    EXPECT_THAT(texts(result.draft.ingredients), ElementsAre("1 bunch parsley", "2 eggs"));
    EXPECT_THAT(stepTexts(result.draft), ElementsAre("Chop the parsley and mix it with the eggs."));
}

TEST(RecipeTextParser, TakesTheFirstOfTwoRecipesThatLookAlike)
{
    for (const char* list : {"2 eggs\n1 l stock\n3 carrots", "Eggs\nStock\nCarrots"}) {
        const auto result = RecipeTextParser::parseFirst(
            page((std::string("EGG SOUP\n\n") + list +
                  "\n\nBoil the carrots in the stock until they are soft.\nAdd the eggs.\n\nRICE SOUP\n\n"
                  "Rice\nStock\nLeeks\n\nBoil the rice and the leeks in the stock for half an hour.")
                     .c_str()));
        EXPECT_TRUE(result.hasMoreRecipes) << list;
        EXPECT_EQ(result.draft.title, u"EGG SOUP") << list;
        EXPECT_EQ(result.draft.ingredients.size(), 3) << list;
        EXPECT_THAT(stepTexts(result.draft), testing::Each(testing::Not(testing::HasSubstr("rice")))) << list;
    }
}

TEST(RecipeTextParser, TellsBareNumbersOfStepsFromAmounts)
{
    const auto draft = RecipeTextParser::parse(
        page("# Streuselkuchen\nZutaten\n1 Päckchen Hefe\n2 TL Zimt\n200 g Mehl\n1 Zitrone\n1 Aus dem Mehl "
             "und der "
             "Hefe einen\nTeig kneten.\n2 Die Zitrone reiben.\n3 Alles eine halbe Stunde backen."));
    EXPECT_THAT(texts(draft.ingredients),
                ElementsAre("1 Päckchen Hefe", "2 TL Zimt", "200 g Mehl", "1 Zitrone"));
    EXPECT_THAT(stepTexts(draft), ElementsAre("Aus dem Mehl und der Hefe einen Teig kneten.",
                                              "Die Zitrone reiben.", "Alles eine halbe Stunde backen."));

    // A word that is a unit elsewhere.
    const auto english = RecipeTextParser::parse(page(
        "# Leek Soup\nIngredients\n3 leeks\n1 l stock\n1 Boil the stock.\n2 Slice the leeks.\n3 Add them."));
    EXPECT_THAT(texts(english.ingredients), ElementsAre("3 leeks", "1 l stock"));
    EXPECT_THAT(stepTexts(english), ElementsAre("Boil the stock.", "Slice the leeks.", "Add them."));
}

TEST(RecipeTextParser, KnowsHeadingsInItsLanguages)
{
    const std::pair<const char*, const char*> headings[] = {
        {"Zutaten", "Zubereitung"},
        {"Ingrédients", "Préparation"},
        {"Ingredientes", "Elaboración"},
        {"Ingredienti", "Procedimento"},
        {"Ingrediënten", "Bereiding"},
        {"Ingredientes", "Modo de preparo"},
        {"Składniki", "Przygotowanie"},
        {"Ingredienser", "Gör så här"},
        {"Ingredienser", "Fremgangsmåde"},
        {"I N G R E D I E N T S", "M E T H O D"},
        {"For 6+ small bowls you will need", "How to make it"},
        {"IN GRED IEN T S", "D IREC T ION S"},
        {"Zutaten für 4 Personen", "Und so wird’s gemacht"},
    };
    for (const auto& [list, method] : headings) {
        const auto draft = RecipeTextParser::parse(
            page((std::string("# X\n") + list + ":\nabc\ndef\n" + method + "\nGhi jkl.").c_str()));
        EXPECT_THAT(texts(draft.ingredients), ElementsAre("abc", "def")) << list;
        EXPECT_THAT(stepTexts(draft), ElementsAre("Ghi jkl.")) << method;
    }
}

TEST(RecipeTextParser, TakesNoLabelOfATimeForTheMethodsHeading)
{
    const auto draft = RecipeTextParser::parse(page("# Soup\nPreparation\n20 min\nIngredients · Serves 4\n2 "
                                                    "eggs\n1 l stock\n1. Boil the eggs.\n2. Peel them."));
    EXPECT_EQ(draft.title, u"Soup");
    EXPECT_EQ(draft.prepMinutes, 20);
    EXPECT_EQ(draft.yield, u"4");
    EXPECT_THAT(texts(draft.ingredients), ElementsAre("2 eggs", "1 l stock"));
    EXPECT_THAT(stepTexts(draft), ElementsAre("Boil the eggs.", "Peel them."));
}

TEST(RecipeTextParser, ReadsAListThatIsSetAsAText)
{
    const auto draft = RecipeTextParser::parse(page(
        "# Cake\nIngredients: 2 eggs; 250 g sugar, the brown\nkind; salt; For the icing: 100 g\nsugar; 1 "
        "lemon.\nMethod\na) Beat the eggs; add sugar.\nb) Bake them.\nServes 4."));
    EXPECT_THAT(texts(draft.ingredients), ElementsAre("2 eggs", "250 g sugar, the brown kind", "salt",
                                                      "For the icing:", "100 g sugar", "1 lemon"));
    EXPECT_THAT(stepTexts(draft), ElementsAre("Beat the eggs; add sugar.", "Bake them."));
    EXPECT_EQ(draft.yield, u"4.");
}

TEST(RecipeTextParser, TakesWhatAHeadingOrARowOfFactsLeavesOffTheList)
{
    const auto ingredients = [](const std::string& list) {
        const std::string text = "# Soup\nIngredients\n" + list + "\nMethod\nBoil the eggs.";
        return texts(RecipeTextParser::parse(page(text.c_str())).ingredients);
    };
    for (const char* left : {"people)", "12)", "(Serves 6)", "Prep time", "Servings:", "Recipe by ada"}) {
        EXPECT_THAT(ingredients(std::string(left) + "\n2 eggs\n1 onion (red)\nsalt"),
                    ElementsAre("2 eggs", "1 onion (red)", "salt"))
            << left;
    }
    EXPECT_THAT(ingredients("1 tbsp of olive oil, plus more for\nserving\n2 eggs\nsalt"),
                ElementsAre("1 tbsp of olive oil, plus more for serving", "2 eggs", "salt"));
    EXPECT_THAT(ingredients("chickpeas)\n2 eggs\nsalt"), ElementsAre("chickpeas)", "2 eggs", "salt"));
    const auto draft = RecipeTextParser::parse(
        page("# Soup\nIngredients (Yield: 10-11\nservings)\n2 eggs\nsalt\nMethod\nBoil the eggs."));
    EXPECT_THAT(texts(draft.ingredients), ElementsAre("2 eggs", "salt"));
    EXPECT_EQ(draft.yield, u"10-11");
}

TEST(RecipeTextParser, TakesWhatNamesTheRecipeOffTheEndsOfTheList)
{
    const auto ingredients = [](const std::string& title, const std::string& list) {
        const std::string text = "# " + title + "\nIngredients\n" + list + "\nMethod\nBoil it.";
        return texts(RecipeTextParser::parse(page(text.c_str())).ingredients);
    };
    EXPECT_THAT(ingredients("Egg Soup", "Egg soup\n2 eggs\nsalt"), ElementsAre("2 eggs", "salt"));
    EXPECT_THAT(ingredients("Egg Soup", "2 eggs\nsalt\nEgg Soup"), ElementsAre("2 eggs", "salt"));
    // What it is made of.
    EXPECT_THAT(ingredients("Oats", "Oats\n200 ml milk\nsalt"), ElementsAre("Oats", "200 ml milk", "salt"));
}

TEST(RecipeTextParser, LeavesAdvertisementsAndFormsOut)
{
    QList<TextLine> lines =
        page("# Soup\nIngredients\n2 eggs\nsalt\n\nAdvertisement\nBoots at half price\n"
             "\nMethod\nBoil the eggs.\n\nA letter every Friday.\nYour address: ______________");
    lines[8].relativeHeight = lines[9].relativeHeight = 0.7;
    lines[4].relativeHeight = lines[5].relativeHeight = 0.7;
    EXPECT_THAT(texts(RecipeTextParser::parse(lines).ingredients), ElementsAre("2 eggs", "salt"));
    EXPECT_THAT(stepTexts(RecipeTextParser::parse(lines)), ElementsAre("Boil the eggs."));
    // Nothing tells it from the recipe.
    lines[4].relativeHeight = lines[5].relativeHeight = 1;
    EXPECT_THAT(texts(RecipeTextParser::parse(lines).ingredients),
                ElementsAre("2 eggs", "salt", "Boots at half price"));
}

TEST(RecipeTextParser, LeavesOutWhatACardOrAPageSaysOfItself)
{
    const auto draft = RecipeTextParser::parse(page(
        "# Recipe: Soup\nServings 4, prep time 10 min, cook time 1 hour\nIngredients\n2 eggs\n1 l stock\n"
        "(over)\n€ 2.40\nMethod\nBoil the eggs.\nIssued 04/2021\n> Any soup?\nShared from my kitchen\n\n3 "
        "Comments\nAnna\nWe boil it twice.\n\n86 "
        "WINTER"));
    EXPECT_EQ(draft.title, u"Soup");
    EXPECT_EQ(draft.yield, u"4");
    EXPECT_EQ(draft.cookMinutes, 60);
    EXPECT_THAT(texts(draft.ingredients), ElementsAre("2 eggs", "1 l stock"));
    EXPECT_THAT(stepTexts(draft), ElementsAre("Boil the eggs."));
}

TEST(RecipeTextParser, TakesCircledNumbersOff)
{
    const auto draft = RecipeTextParser::parse(
        page("# Soup\nIngredients\n2 eggs\nMethod\n① Boil the eggs.\n② Peel them.\n❸ Eat them."));
    EXPECT_THAT(stepTexts(draft), ElementsAre("Boil the eggs.", "Peel them.", "Eat them."));
}

TEST(RecipeTextParser, LetsARemarkAmongTheStepsEndWithItsType)
{
    QList<TextLine> lines =
        page("# Soup\nIngredients / Zutaten\n2 eggs\n1 onion\nDirections / Zubereitung\nBoil the eggs.\n"
             "Tip: Use fresh ones.\nPeel the eggs and eat them.");
    lines[lines.size() - 2].relativeHeight = 0.7;
    const auto draft = RecipeTextParser::parse(lines);
    EXPECT_THAT(texts(draft.ingredients), ElementsAre("2 eggs", "1 onion"));
    EXPECT_THAT(stepTexts(draft), ElementsAre("Boil the eggs.", "Peel the eggs and eat them."));
}

TEST(RecipeTextParser, TakesStepsThatAreCountedInsideOneTextApart)
{
    const auto draft = RecipeTextParser::parse(
        page("# Soup\nIngredients\n2 eggs\n1 onion\nMethod\n(1) Boil the eggs (2) or\n"
             "more. (3) Peel them. (4) Eat."));
    EXPECT_THAT(stepTexts(draft), ElementsAre("Boil the eggs", "or more.", "Peel them.", "Eat."));
}

TEST(RecipeTextParser, TakesTheNameOnTheCardBelowAText)
{
    QList<TextLine> lines =
        page("# What we ate when it rained\nIt rained for the whole of last week, and I cooked.\n"
             "The window steams up, and the radio mumbles to itself.\n"
             "By four somebody comes in and asks what smells so good.\n"
             "So it took me a dozen tries to come to a version of it.\n# Grandma’s Best\n"
             "Ingredients\n2 eggs\n1 onion\nMethod\nBoil the eggs.");
    lines[5].relativeHeight = 1.5;
    EXPECT_EQ(RecipeTextParser::parse(lines).title, QStringLiteral("Grandma’s Best"));
}

TEST(RecipeTextParser, TakesNoNameOfAPaperForATitle)
{
    QList<TextLine> lines = page("# The Allotment Letter\nNumber 41 · Autumn\n# Arroz Chaufa\nIngredients\n"
                                 "2 eggs\n1 onion\nMethod\nBoil the eggs.");
    lines[2].relativeHeight = 1.6;
    EXPECT_EQ(RecipeTextParser::parse(lines).title, QStringLiteral("Arroz Chaufa"));
}

TEST(RecipeTextParser, TellsTheTitleFromTheNameOfTheSiteAboveIt)
{
    // By what the foot says, or a browser's line at the head.
    for (const char* told : {"\n\n© 2019 The Copper Spoon. All rights reserved.", "\n\nEgg Soup"}) {
        QList<TextLine> lines =
            page((std::string("# The Copper Spoon\n# Egg Soup\nIngredients (Serves 4)\n2 eggs\n"
                              "1 l stock\nMethod\nBoil the stock.\n\nComments (3)\nAnna\nGood.") +
                  told)
                     .c_str());
        if (lines.last().text == u"Egg Soup") {
            lines.prepend(lines.takeLast());
        }
        const RecipeDraft draft = RecipeTextParser::parse(lines);
        EXPECT_EQ(draft.title, u"Egg Soup") << told;
        EXPECT_EQ(draft.yield, u"4");
        EXPECT_THAT(texts(draft.ingredients), ElementsAre("2 eggs", "1 l stock"));
        EXPECT_THAT(stepTexts(draft), ElementsAre("Boil the stock."));
    }
}

TEST(RecipeTextParser, TakesTheLineAboveTheAuthorAndBelowTheSitesMenuForTheTitle)
{
    for (const char* told : {"# Salt & Thyme\n# Egg Soup\nBy anna-b · 2024-03-09",
                             "# Salt & Thyme\nHome\nRecipes\nAbout\n# Egg Soup\nVery good."}) {
        QList<TextLine> lines =
            page((std::string(told) + "\nIngredients\n2 eggs\nsalt\nMethod\nBoil the salt.").c_str());
        lines.first().relativeHeight = 1.7;
        EXPECT_EQ(RecipeTextParser::parse(lines).title, u"Egg Soup") << told;
    }
}

TEST(RecipeTextParser, TakesTheTitleThatStandsTwice)
{
    QList<TextLine> lines =
        page("# Butter & Thyme\nBlog Shop Letters\n# Arroz Chaufa\nWhat a wet day it was.\n"
             "# Arroz Chaufa\nIngredients (yield: 4 servings)\n2 eggs\n1 onion\nMethod\n"
             "1 Boil the eggs\n\n2 Peel them\n\n3 (optional) Fry them");
    lines[0].relativeHeight = 2.2;
    lines[4].relativeHeight = 1.5;
    const RecipeDraft draft = RecipeTextParser::parse(lines);
    EXPECT_EQ(draft.title, QStringLiteral("Arroz Chaufa"));
    EXPECT_THAT(texts(draft.ingredients), ElementsAre("2 eggs", "1 onion"));
    EXPECT_THAT(stepTexts(draft), ElementsAre("Boil the eggs", "Peel them", "(optional) Fry them"));
}

TEST(RecipeTextParser, TakesNoLabelOfAStepForAFurtherRecipe)
{
    const auto draft = RecipeTextParser::parse(
        page("# Soup\nIngredients\n2 eggs\n1 onion\n\nSTEP 1\nBoil the eggs.\n\nSTEP 2\nPeel them and eat."));
    EXPECT_THAT(stepTexts(draft), ElementsAre("Boil the eggs.", "Peel them and eat."));
}

TEST(RecipeTextParser, EndsTheMethodWhereASmallerTextHasAHeading)
{
    QList<TextLine> lines =
        page("# Soup\nIngredients\n2 eggs\n1 onion\nMethod\n1 Boil the eggs.\n2 Peel the eggs.\n\n"
             "Think about it\n1. Why do we wash our hands?\n2. Where do eggs come from?");
    for (qsizetype i = lines.size() - 3; i < lines.size(); ++i) {
        lines[i].relativeHeight = 0.9;
    }
    EXPECT_THAT(stepTexts(RecipeTextParser::parse(lines)), ElementsAre("Boil the eggs.", "Peel the eggs."));
}

TEST(RecipeTextParser, TakesSmallTypeBehindTheMethodForNoStep)
{
    QList<TextLine> lines = page("# Soup\n2 eggs\n1 l stock\n3 carrots\n\nBoil the eggs and the carrots.\n"
                                 "Add the stock and serve it hot.\n\nA soup for long evenings by the fire.");
    lines.last().relativeHeight = 0.8;
    EXPECT_THAT(stepTexts(RecipeTextParser::parse(lines)),
                ElementsAre("Boil the eggs and the carrots.", "Add the stock and serve it hot."));
}

TEST(RecipeTextParser, LeavesOutWhatItCannotPlace)
{
    EXPECT_EQ(RecipeTextParser::parse({}), RecipeDraft());
    const auto draft = RecipeTextParser::parse(page("Invoice\nTotal due\nThank you"));
    EXPECT_TRUE(draft.ingredients.isEmpty());
    EXPECT_TRUE(draft.steps.isEmpty());
}

TEST(RecipeTextParser, IsNotPutOffByHeadsThatRecurFromPageToPage)
{
    QList<TextLine> lines =
        page("Main Courses\n# Stew\nIngredients\n1 kg beef\n2 onions\nMethod\nBrown the beef in");
    for (TextLine line : page("Main Courses\na large pot.\n7")) {
        line.page = 1;
        lines.append(line);
    }
    const auto draft = RecipeTextParser::parse(lines);
    EXPECT_EQ(draft.title, u"Stew");
    EXPECT_THAT(stepTexts(draft), ElementsAre("Brown the beef in a large pot."));
}
