#include "PagePicture.h"

#include "import/document/RecipeTextParser.h"

using namespace ovrin;

namespace {

/// Pages drawn one after the other, with a line of "====" between them.
QList<TextLine> pagePictures(const char* utf8)
{
    QList<TextLine> lines;
    int page = 0;
    for (const QString& drawn : QString::fromUtf8(utf8).split(QStringLiteral("====\n"))) {
        lines += pagePicture(drawn.toUtf8().constData(), page++);
    }
    return lines;
}

struct RecipePage
{
    const char* name;
    const char* picture;
    const char* ingredients;
    const char* steps;
};

class RecipesOnPages : public testing::TestWithParam<RecipePage>
{
};

} // namespace

TEST_P(RecipesOnPages, AreFoundByTheirPlaces)
{
    const RecipeDraft draft = RecipeTextParser::parse(pagePictures(GetParam().picture));
    QStringList steps;
    for (const RecipeStep& step : draft.steps) {
        steps += step.paragraphs;
    }
    EXPECT_EQ(draft.ingredients.join(u'/').toStdString(), GetParam().ingredients);
    EXPECT_EQ(steps.join(u'/').toStdString(), GetParam().steps);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Pages, RecipesOnPages, testing::Values(
    RecipePage{"ListAtTheRightOfANumberedMethod",
        "Soup\n"
        "\n"
        "1 Heat the oil in a large pot.                    2 carrots\n"
        "2 Add the carrots and let them                    1 l stock\n"
        "  simmer.                                         Oil\n"
        "3 Pour in the stock. Serve.\n",
        "2 carrots/1 l stock/Oil",
        "Heat the oil in a large pot./Add the carrots and let them simmer./Pour in the stock. Serve."},
    RecipePage{"NumberedStepsBelowWhatIsLikeNoList",
        "Parmesan potatoes\n"
        "By Ada\n"
        "You can have this as a side dish, or for breakfast.\n"
        "Butter\n"
        "Parmesan cheese\n"
        "Rosemary; dried should be fine, but fresh is obviously better\n"
        "\n"
        "1. Cut the potatoes into small cubes.\n"
        "2. Fry them in the butter for about 20 minutes.\n"
        "3. Add the cheese, and serve at once.\n",
        "Butter/Parmesan cheese/Rosemary; dried should be fine, but fresh is obviously better",
        "Cut the potatoes into small cubes./Fry them in the butter for about 20 minutes./"
        "Add the cheese, and serve at once."},
    RecipePage{"ListReadInTheMiddleOfTheSteps",
        "Soup\n"
        "Method\n"
        "1 Heat the oil in a large pot.\n"
        "Ingredients\n"
        "2 leeks\n"
        "1 l stock\n"
        "2 Add the leeks and let them soften.\n"
        "3 Pour in the stock and let it boil.\n"
        "4 Serve the soup at once, with bread.\n",
        "2 leeks/1 l stock",
        "Heat the oil in a large pot./Add the leeks and let them soften./Pour in the stock and let it boil./"
        "Serve the soup at once, with bread."},
    RecipePage{"RemarksAboutAListInFrontOfItAndBehindIt",
        "Soup\n"
        "Method\n"
        "1. Heat the oil in a large pot.\n"
        "2. Add the leeks and the stock.\n"
        "\n"
        "Ingredients\n"
        "A soup for cold days, when nobody wants to\n"
        "go out for more.\n"
        "2 leeks\n"
        "1 l stock\n"
        "Chives\n"
        "Enjoy!\n"
        "Photograph: Ada Byron\n"
        "\n"
        "Read it all once before you begin.\n",
        "2 leeks/1 l stock/Chives", "Heat the oil in a large pot./Add the leeks and the stock."},
    RecipePage{"RemarksBelowAListWithoutAmounts",
        "Soup\n"
        "Ingredients\n"
        "Lamb shoulder\n"
        "Beef stock\n"
        "Thyme\n"
        "Enjoy!\n"
        "Method\n"
        "1. Fry the lamb.\n"
        "2. Add the stock.\n",
        "Lamb shoulder/Beef stock/Thyme", "Fry the lamb./Add the stock."},
    RecipePage{"ARemarkOnTwoLinesBelowAList",
        "Soup\n"
        "Ingredients\n"
        "2 leeks\n"
        "1 l stock\n"
        "Chives\n"
        "\n"
        "Read the whole recipe\n"
        "once before you begin.\n"
        "\n"
        "Method\n"
        "1. Heat the oil in a large pot.\n"
        "2. Add the leeks and the stock.\n",
        "2 leeks/1 l stock/Chives", "Heat the oil in a large pot./Add the leeks and the stock."},
    RecipePage{"ARemarkRightBelowAList",
        "Soup\n"
        "Ingredients\n"
        "2 leeks\n"
        "1 l stock\n"
        "Chives\n"
        "Read the whole recipe\n"
        "once before you begin.\n"
        "\n"
        "Method\n"
        "1. Heat the oil in a large pot.\n"
        "2. Add the leeks and the stock.\n",
        "2 leeks/1 l stock/Chives", "Heat the oil in a large pot./Add the leeks and the stock."},
    RecipePage{"EntriesThatEndAsSentencesDo",
        "Soup\n"
        "Ingredients\n"
        "Some chicken breast or similar meat.\n"
        "Onions.\n"
        "Cream, or sour cream if you like.\n"
        "One glass of white wine.\n"
        "Method\n"
        "1. Fry the chicken with the onions.\n"
        "2. Add the cream and the wine.\n",
        "Some chicken breast or similar meat./Onions./Cream, or sour cream if you like./One glass of white wine.",
        "Fry the chicken with the onions./Add the cream and the wine."},
    RecipePage{"StepWhoseNumberTheFontDoesNotHave",
        "Soup\n"
        "Ingredients\n"
        "2 leeks\n"
        "1 l stock\n"
        "Method\n"
        "1. Heat the oil in a large pot.\n"
        "\n"
        "2. Add the leeks.\n"
        "\n"
        "3. Pour in the stock.\n"
        "\n"
        "Season it with salt.\n"
        "\n"
        "5. Serve it at once, with bread.\n",
        "2 leeks/1 l stock",
        "Heat the oil in a large pot./Add the leeks./Pour in the stock./Season it with salt./"
        "Serve it at once, with bread."},
    RecipePage{"RemarkBelowAListBesideAMethodWithoutAHeading",
        "Soup\n"
        "\n"
        "Ingredients           Heat the oil in a large pot and add the leeks.\n"
        "2 leeks\n"
        "1 l stock             Pour in the stock, let it boil, and season\n"
        "                      it with salt.\n"
        "Notes\n"
        "It keeps well.        Serve the soup at once, with bread.\n",
        "2 leeks/1 l stock",
        "Heat the oil in a large pot and add the leeks./Pour in the stock, let it boil, and season it with salt./"
        "Serve the soup at once, with bread."},
    RecipePage{"RemarkBelowNumberedSteps",
        "Soup\n"
        "Ingredients\n"
        "2 leeks\n"
        "1 l stock\n"
        "Method\n"
        "1. Heat the oil in a large pot and add\n"
        "the leeks.\n"
        "\n"
        "2. Pour in the stock.\n"
        "\n"
        "3. Serve at once, with bread.\n"
        "\n"
        "Read it all once before you begin.\n",
        "2 leeks/1 l stock",
        "Heat the oil in a large pot and add the leeks./Pour in the stock./Serve at once, with bread."},
    RecipePage{"FactsAndAFormBelowTheMethod",
        "Soup\n"
        "Ingredients\n"
        "2 leeks\n"
        "1 l stock\n"
        "Method\n"
        "Heat the oil in a large pot and add the leeks.\n"
        "Pour in the stock, and serve at once.\n"
        "Prep time: 10 min | Cook time: 20 min | Serves: 4\n"
        "\n"
        "A letter every week, with one recipe.\n"
        "Your address: ____________\n",
        "2 leeks/1 l stock",
        "Heat the oil in a large pot and add the leeks./Pour in the stock, and serve at once."},
    RecipePage{"LabelsAndTimesBelowTheList",
        "Soup\n"
        "Ingredients\n"
        "2 leeks\n"
        "1 l stock\n"
        "Prep time\n"
        "10 min\n"
        "Cook time\n"
        "20 min\n"
        "Method\n"
        "Heat the oil in a large pot and add the leeks.\n"
        "Pour in the stock, and serve at once.\n",
        "2 leeks/1 l stock",
        "Heat the oil in a large pot and add the leeks./Pour in the stock, and serve at once."},
    RecipePage{"AddressInTheMiddleOfASentence",
        "Soup\n"
        "Ingredients\n"
        "2 leeks\n"
        "1 l stock\n"
        "Method\n"
        "Boil the leeks in the stock, and serve them with bread. More is at\n"
        "https://www.leeks.example/bread\n"
        "\n"
        "https://www.soups.example/17\n",
        "2 leeks/1 l stock",
        "Boil the leeks in the stock, and serve them with bread. More is at https://www.leeks.example/bread"},
    RecipePage{"MethodsHeadingAboveThatOfTheListBesideIt",
        "Soup\n"
        "\n"
        "                              Method\n"
        "30 min to cook                1. Heat the oil in a large pot, and add the leeks.\n"
        "INGREDIENTS                   2. Pour in the stock. Serve at once.\n"
        "2 leeks\n"
        "1 l stock\n",
        "2 leeks/1 l stock",
        "Heat the oil in a large pot, and add the leeks./Pour in the stock. Serve at once."},
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
        " Prep 5 min   Cook 5 min        Servings 1    Total 10 min\n"
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
        "    6 spoons of thick        Add the tomatoes and all the rest,\n"
        "      milk cream             and let it boil for as long as it\n"
        "  0.5 spoon sugar            takes.\n"
        "    1 spoon of fine and      Serve it with pasta.\n"
        "      fresh thyme\n",
        "700 g tomatoes in pieces/6 spoons of thick milk cream/0.5 spoon sugar/1 spoon of fine and fresh thyme",
        "Chop the onion into a pot./"
        "Add the tomatoes and all the rest, and let it boil for as long as it takes./Serve it with pasta."},
    RecipePage{"MethodInItsOwnColumnOnTheNextPage",
        "Soup\n"
        "\n"
        "Method                         Ingredients\n"
        "1. Cut the onion.              1 onion\n"
        "2. Boil the onion in           2 carrots\n"
        "water that is hot and          1 l water\n"
        "====\n"
        "salted.\n"
        "3. Serve with bread.\n",
        "1 onion/2 carrots/1 l water",
        "Cut the onion./Boil the onion in water that is hot and salted./Serve with bread."},
    RecipePage{"ListThatEndsOverleafBesideItsMethod",
        "Aglio e olio\n"
        "\n"
        "Ingredients              Steps\n"
        "500 g spaghetti          1. Heat the oil in a large pan and\n"
        "5 cloves of garlic       brown the garlic.\n"
        "100 ml olive oil         2. Boil the spaghetti.\n"
        "====\n"
        "A bunch of parsley\n"
        "                         3. Mix the spaghetti with the oil.\n"
        "                         4. Add the parsley and serve it hot.\n",
        "500 g spaghetti/5 cloves of garlic/100 ml olive oil/A bunch of parsley",
        "Heat the oil in a large pan and brown the garlic./Boil the spaghetti./"
        "Mix the spaghetti with the oil./Add the parsley and serve it hot."},
    RecipePage{"StepsThatCountOnBelowAListBesideThem",
        "Turkey\n"
        "\n"
        "1. Mix garlic into the butter.              Ingredients\n"
        "2. Remove giblets from the turkey.          1 turkey\n"
        "3. Rinse it and pat it dry.                 2 cups butter\n"
        "4. Coat it with the butter.                 1 tbsp garlic\n"
        "\n"
        "5. Place the turkey on a rack in a foil pan, and cover it with foil.\n"
        "6. Place the pan on the grill and cook it for an hour and a half.\n",
        "1 turkey/2 cups butter/1 tbsp garlic",
        "Mix garlic into the butter./Remove giblets from the turkey./Rinse it and pat it dry./"
        "Coat it with the butter./Place the turkey on a rack in a foil pan, and cover it with foil./"
        "Place the pan on the grill and cook it for an hour and a half."},
    RecipePage{"TeasersBelowAMethodInTwoColumns",
        "Limoncini\n"
        "\n"
        "Ingredients                         3. Knead it for a few minutes.\n"
        "250 g milk                          4. Let it rise for about an hour.\n"
        "20 g sugar                          5. Grate the skin of the lemons.\n"
        "650 g flour                         6. Roll out the dough.\n"
        "                                    7. Spread the lemons on it.\n"
        "Method                              8. Roll it up tightly.\n"
        "1. Warm the milk.                   9. Cut it into slices.\n"
        "2. Add all the rest.                10. Bake them for 20 minutes.\n"
        "\n"
        "You may also like\n"
        "\n"
        "\n"
        "\n"
        "\n"
        "Cold Borscht                        A soup for cold days\n",
        "250 g milk/20 g sugar/650 g flour",
        "Warm the milk./Add all the rest./Knead it for a few minutes./Let it rise for about an hour./"
        "Grate the skin of the lemons./Roll out the dough./Spread the lemons on it./Roll it up tightly./"
        "Cut it into slices./Bake them for 20 minutes."},
    RecipePage{"FactsBesideAndBelow",
        "Salad\n"
        "\n"
        "Preparation    10 min\n"
        "\n"
        "Ingredients\n"
        "300 g crab\n"
        "3 eggs\n"
        "\n"
        "Method\n"
        "1. Boil the eggs.\n"
        "2. Add the crab.\n"
        "Prep time: 10 min | Cook time: 30 min | Servings: 3 | Total time:\n"
        "40 min\n",
        "300 g crab/3 eggs",
        "Boil the eggs./Add the crab."},
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

namespace {

/// Pages parted by a form feed, with "#" in front of the lines in large type.
QList<TextLine> pagesWithTitles(const char* pictures)
{
    QList<TextLine> lines;
    int page = 0;
    for (const QString& picture : QString::fromUtf8(pictures).split(u'\f')) {
        for (TextLine line : pagePicture(picture.toUtf8().constData(), page)) {
            line.relativeHeight = line.text.startsWith(u'#') ? 2 : 1;
            line.text.remove(u'#');
            lines.append(line);
        }
        ++page;
    }
    return lines;
}

struct SeveralRecipes
{
    const char* name;
    const char* pages;
    const char* title;
    const char* ingredients;
    const char* steps;
};

class SeveralRecipesOnPages : public testing::TestWithParam<SeveralRecipes>
{
};

} // namespace

TEST_P(SeveralRecipesOnPages, EndWhereTheNextOneBegins)
{
    const RecipeTextParser::Result result = RecipeTextParser::parseFirst(pagesWithTitles(GetParam().pages));
    QStringList steps;
    for (const RecipeStep& step : result.draft.steps) {
        steps += step.paragraphs;
    }
    EXPECT_TRUE(result.hasMoreRecipes);
    EXPECT_EQ(result.draft.title.toStdString(), GetParam().title);
    EXPECT_EQ(result.draft.ingredients.join(u'/').toStdString(), GetParam().ingredients);
    EXPECT_EQ(steps.join(u'/').toStdString(), GetParam().steps);
    EXPECT_NE(result.draft.yield, u"6");
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Pages, SeveralRecipesOnPages, testing::Values(
    SeveralRecipes{"WhereTheNextMethodHasATitle",
        "#Egg Soup\n\n2 eggs\n1 l stock\n\nMethod\nBoil the eggs in the stock.\n\n"
        "#Leek Soup\n\n3 leeks\n1 l stock\n\nMethod\nBoil the leeks.\n",
        "Egg Soup", "2 eggs/1 l stock", "Boil the eggs in the stock."},
    SeveralRecipes{"WhereTheMethodStandsInFrontOfItsList",
        "#Orange Jam\n\nInstructions\n1. Zest all fruit.\n2. Boil it with the sugar.\n\n"
        "Ingredients\n4 oranges\n1 cup sugar\n\n"
        "#Paella\n\nA dish of rice that needs a large pan and some patience.\n\n"
        "Instructions\n1. Heat the olive oil.\n2. Add the rice.\n",
        "Orange Jam", "4 oranges/1 cup sugar", "Zest all fruit./Boil it with the sugar."},
    SeveralRecipes{"WhereOnlyTheNextHasHeadings",
        "#Cheese Roll\n\nUse the best cheese that you can find, and a roll of today.\n\n"
        "• A roll or a bun\n• Thin cheese\n• Pickles\n\n"
        "1. Cut the roll open.\n2. Add the cheese.\n3. Add the pickles.\n\n"
        "#Roast Turkey\n\nIngredients\n1 turkey\n2 cups broth\n\nMethod\n1. Roast the turkey.\n",
        "Cheese Roll", "A roll or a bun/Thin cheese/Pickles", "Cut the roll open./Add the cheese./Add the pickles."},
    SeveralRecipes{"WhereNeitherMethodHasAHeading",
        "#Meatballs\n\nIngredients (Serves 3)\n1/2 lb beef\n1/4 cup breadcrumbs\n\n"
        "Preheat the oven, and mix the beef with the breadcrumbs.\n\n"
        "Bake small balls of it for ten minutes.\n\n"
        "#Lentil Soup\n\nIngredients (Serves 6)\n2 cups lentils\n1 onion\n\n"
        "Cook the lentils with the onion for eight hours.\n",
        "Meatballs", "1/2 lb beef/1/4 cup breadcrumbs",
        "Preheat the oven, and mix the beef with the breadcrumbs./Bake small balls of it for ten minutes."},
    SeveralRecipes{"WhereARemarkStandsBetweenThem",
        "#Bean Soup\n\nIngredients\n1 can beans\n2 onions\n\n1. Fry the onions in a pot.\n2. Add the beans.\n\n"
        "Notes\nRead it all before you begin.\n\n"
        "#Tabouleh\n\nIngredients\n2 cups bulgur\n1 cucumber\n\n1. Soak the bulgur.\n2. Add the cucumber.\n",
        "Bean Soup", "1 can beans/2 onions", "Fry the onions in a pot./Add the beans."},
    SeveralRecipes{"WhereTheNextTitleIsLargestOverleaf",
        "#Slow Pork\n\n2 lb pork\n6 cloves of garlic\n\nDirections\n1. Season the pork.\n2. Cook it slowly.\f"
        "#Curry of potatoes\n\n2 potatoes\n1 onion\n\nDirections\n1. Heat the oven.\n2. Bake the potatoes.\n",
        "Slow Pork", "2 lb pork/6 cloves of garlic", "Season the pork./Cook it slowly."}),
    [](const auto& drawn) { return std::string(drawn.param.name); });
// clang-format on

TEST(RecipePages, ContinueOverleafWithTheMethodAndNotWithTheListThatStoodThere)
{
    const RecipeDraft draft =
        RecipeTextParser::parse(pagesWithTitles("#Ravioli\n\n"
                                                "Ingredients              Method\n"
                                                "4 eggs                   Pile the flour onto the counter.\n"
                                                "400 g flour              Carve a hole into it with your\n"
                                                "1 lemon                  hands.\f"
                                                "Crack the eggs into it   Roll the dough out, and cut it\n"
                                                "and mix everything.      into small squares.\n"
                                                "Let the dough rest.      Fill them, and fold them.\n"));
    EXPECT_EQ(draft.ingredients.join(u'/'), u"4 eggs/400 g flour/1 lemon");
}

TEST(RecipePages, TakeNoTitleAndNoIntroductionForEntriesOfAList)
{
    QList<TextLine> lines = pagePicture("Gnocchi\n"
                                        "By Luke\n"
                                        "A pasta of potatoes, and not a bloating one. They are good\n"
                                        "with butter.\n"
                                        "potatoes\n"
                                        "flour\n"
                                        "butter\n"
                                        "sage or oregano\n"
                                        "\n"
                                        "Procedure\n"
                                        "1. Boil the potatoes.\n"
                                        "2. Add the flour.\n");
    lines.first().relativeHeight = 2;
    const RecipeDraft draft = RecipeTextParser::parse(lines);
    EXPECT_EQ(draft.title, u"Gnocchi");
    EXPECT_EQ(draft.ingredients.join(u'/'), u"potatoes/flour/butter/sage or oregano");
}

TEST(RecipePages, AreLookedAtUpToALimitOfLines)
{
    QList<TextLine> lines(24000, TextLine{QStringLiteral("1 egg")});
    EXPECT_LE(RecipeTextParser::parse(lines).ingredients.size(), 3000);
}
