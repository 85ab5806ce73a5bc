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

namespace {

/// A letter is as wide as a line is high.
constexpr double letter = 0.01;

struct ListCase
{
    const char* name;
    /// How many letters wide the column is.
    int width;
    /// A line each: how far below the one before it stands, in its height, and its text, set in by spaces.
    std::vector<std::pair<double, const char*>> lines;
    const char* entries;
};

class ListsByPlace : public testing::TestWithParam<ListCase>
{
};

} // namespace

TEST_P(ListsByPlace, AreJoinedIntoEntries)
{
    QList<TextLine> lines;
    double y = 0.1;
    for (const auto& [step, drawn] : GetParam().lines) {
        const QString text = QString::fromUtf8(drawn).trimmed();
        const double left = 0.1 + letter * static_cast<double>(qstrlen(drawn) - text.toUtf8().size());
        y += letter * step;
        const QRectF place(left, y, letter * static_cast<double>(text.size()), letter);
        lines.append({text, lines.isEmpty(), 1, 0, place, 0.1 + letter * GetParam().width});
    }
    EXPECT_EQ(RecipeItems::ingredients(lines).join(u'/').toStdString(), GetParam().entries);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lists, ListsByPlace, testing::Values(
    ListCase{"EntriesApart", 35, {
        {0, "2 cups of flour, and more of it"}, {1.3, "for dusting"},
        {1.7, "Parsley"},
        {1.7, "1 bottle of juice of tomatoes and"}, {1.3, "carrots"}},
        "2 cups of flour, and more of it for dusting/Parsley/1 bottle of juice of tomatoes and carrots"},
    ListCase{"EntriesAFewHairsApart", 40, {
        {0, "beef brisket with its fat left on, in"}, {1.25, "cubes"},
        {1.36, "butter"},
        {1.36, "cloves (not garlic cloves, just cloves)"},
        {1.36, "juniper berries"},
        {1.36, "brown beer of a kind that has a strong"}, {1.25, "taste"}},
        "beef brisket with its fat left on, in cubes/butter/cloves (not garlic cloves, just cloves)/"
        "juniper berries/brown beer of a kind that has a strong taste"},
    ListCase{"EntriesApartByLessThanRoundingAllows", 27, {
        {0, "24 oz or 1 jar of tomato"}, {1.07, "Sauce (Roma)"},
        {1.19, "1 box of Macaroni, or"}, {1.07, "penne"},
        {1.13, "8 oz shredded Mozzarella"}, {1.05, "Cheese (soft)"},
        {1.13, "1 egg"}, {1.19, "2 lemons"}, {1.13, "Oil"}},
        "24 oz or 1 jar of tomato Sauce (Roma)/1 box of Macaroni, or penne/8 oz shredded Mozzarella Cheese (soft)/"
        "1 egg/2 lemons/Oil"},
    ListCase{"SmallPrintBelowTellsNothing", 20, {
        {0, "1 kg of black"}, {1.2, "beans, rinsed and"}, {1.2, "drained."},
        {1.2, "1 white onion cut"}, {1.2, "into halves."},
        {1.2, "1 cup of chopped"}, {1.2, "coriander."},
        {4, "A letter each week"}, {1.0, "for you"}},
        "1 kg of black beans, rinsed and drained./1 white onion cut into halves./1 cup of chopped coriander./"
        "A letter each week/for you"},
    ListCase{"NamesBelowNamesBesideAmounts", 23, {
        {0, "1/4 tsp   Cayenne"}, {1.2, "3/4 tsp   White"}, {1.2, "          Pepper"},
        {1.2, "1 tbsp    Worcestershire"}, {1.2, "          Sauce"},
        {1.2, "2 tbsp    Minced"}, {1.2, "          Fresh"}, {1.2, "          Garlic"},
        {1.2, "1/2 cup   Dried"}, {1.2, "          Tomatoes"},
        {1.2, "1/2 cup   Diced"}, {1.2, "          Andouille"},
        {1.2, "1 tsp     Salt"}},
        "1/4 tsp   Cayenne/3/4 tsp   White Pepper/1 tbsp    Worcestershire Sauce/2 tbsp    Minced Fresh Garlic/"
        "1/2 cup   Dried Tomatoes/1/2 cup   Diced Andouille/1 tsp     Salt"},
    ListCase{"AColonThatAnnouncesWhatIsSetIn", 27, {
        {0, "brown sugar"},
        {1.2, "brown beer (a strong one):"}, {1.2, "  1 l / 4 cups"},
        {1.2, "butter"}, {1.2, "thyme"}, {1.2, "olive oil"}},
        "brown sugar/brown beer (a strong one): 1 l / 4 cups/butter/thyme/olive oil"},
    ListCase{"RestsThatBeginWithACapital", 19, {
        {0, "3/4 cup Long Grain"}, {1.2, "Mixture"},
        {1.2, "2 tbsp Worcester"}, {1.2, "Seasoning"},
        {1.2, "1 tsp Black Sesame"}, {1.2, "Seeds"},
        {1.2, "1 egg"}, {1.2, "8 oz Spring Greens"}, {1.2, "Drizzle of oil"}},
        "3/4 cup Long Grain Mixture/2 tbsp Worcester Seasoning/1 tsp Black Sesame Seeds/1 egg/"
        "8 oz Spring Greens/Drizzle of oil"},
    ListCase{"AmountsBelowFullLinesAtUnevenSpaces", 20, {
        {0, "1/4 cup Panko"}, {1.04, "         Breadcrumbs"}, {1.11, "2 tbsp Soy Seasoning"},
        {1.04, "1 small Green Onion,"}, {1.11, "         chopped"}, {1.11, "3/4 cup Basmati Rice"},
        {1.04, "2 oz Green Peas"}, {1.11, "1/2 cup Cilantro,"}, {1.04, "         loosely"},
        {1.11, "         packed"}},
        "1/4 cup Panko Breadcrumbs/2 tbsp Soy Seasoning/1 small Green Onion, chopped/3/4 cup Basmati Rice/"
        "2 oz Green Peas/1/2 cup Cilantro, loosely packed"},
    ListCase{"OneRestAlone", 27, {
        {0, "400 g flour"}, {1.2, "3 eggs"}, {1.2, "about 50 g grated mountain"}, {1.2, "cheese"},
        {1.2, "1 leek"}, {1.2, "200 g cream"}},
        "400 g flour/3 eggs/about 50 g grated mountain cheese/1 leek/200 g cream"},
    ListCase{"ANameWithoutAnAmountBesideAColumnOfThem", 20, {
        {0, "140 g  flour"}, {1.2, "4      eggs"}, {1.2, "200 ml milk of cows"}, {1.2, "       sunflower oil"}},
        "140 g  flour/4      eggs/200 ml milk of cows/sunflower oil"},
    ListCase{"AWordThatEndsNoEntry", 21, {
        {0, "1 tsp of smoked"}, {1.2, "paprika"},
        {1.2, "pinch of coriander"},
        {1.2, "1 jar of tomatoes"}},
        "1 tsp of smoked paprika/pinch of coriander/1 jar of tomatoes"},
    ListCase{"ABracketLeftOpenInFrontOfAFigure", 24, {
        {0, "1 pound beef (80/20 or"}, {1.2, "93/7)"},
        {1.2, "1 pound pork"}, {1.2, "1 egg"}},
        "1 pound beef (80/20 or 93/7)/1 pound pork/1 egg"},
    ListCase{"WrappedFarFromTheColumnsEdge", 60, {
        {0, "2 cups of flour, and"}, {1.2, "more for dusting"},
        {1.2, "1 bottle of juice of"}, {1.2, "carrots"},
        {1.2, "3 tomatoes, as ripe"}, {1.2, "as they come"},
        {1.2, "1 egg"}, {1.2, "2 leeks"}},
        "2 cups of flour, and more for dusting/1 bottle of juice of carrots/3 tomatoes, as ripe as they come/"
        "1 egg/2 leeks"},
    ListCase{"EntriesThatLookLikeRests", 14, {
        {0, "140g flour"}, {1.2, "4 eggs"}, {1.2, "200ml milk"}, {1.2, "sunflower oil"}},
        "140g flour/4 eggs/200ml milk/sunflower oil"},
    ListCase{"AnAmountInWordsBelowAFullLine", 19, {
        {0, "100g olives"}, {1.2, "2 chopped chillies"}, {1.2, "a pinch of salt"}},
        "100g olives/2 chopped chillies/a pinch of salt"},
    ListCase{"AGroupSetOffByABlankSpace", 36, {
        {0, "Dough"}, {1.3, "4 eggs"}, {1.2, "A little oil"},
        {1.7, "Cheese Filling"}, {1.3, "1 lemon"}, {1.2, "Parsley"},
        {1.7, "Topping"}, {1.3, "Chopped crab meat"}, {1.2, "Dill"}},
        "Dough:/4 eggs/A little oil/Cheese Filling:/1 lemon/Parsley/Topping:/Chopped crab meat/Dill"},
    ListCase{"NoGroupAboveTheRestOfAnEntry", 24, {
        {0, "1 lb chicken"}, {1.7, "2 tbsp butter"}, {1.7, "2 onions"}, {1.7, "1 egg"},
        {1.7, "Sandwich bun or a bread"}, {1.2, "(a good one)"}, {1.7, "1 lemon"}},
        "1 lb chicken/2 tbsp butter/2 onions/1 egg/Sandwich bun or a bread (a good one)/1 lemon"},
    ListCase{"AFirstEntryWithoutAnAmount", 36, {
        {0, "Pot of water"}, {1.2, "320g spaghetti"}, {1.2, "2 cloves"}, {1.2, "10g capers"}},
        "Pot of water/320g spaghetti/2 cloves/10g capers"},
    ListCase{"BehindABracketThatIsClosed", 36, {
        {0, "1 sweet pepper"}, {1.2, "50 g grated mountain cheese, or more"}, {1.2, "leaves of basil (fresh is best)"},
        {1.2, "chilli flakes"}, {1.2, "1 onion"}},
        "1 sweet pepper/50 g grated mountain cheese, or more leaves of basil (fresh is best)/chilli flakes/1 onion"},
    ListCase{"ASpaceBetweenThoseOfRestsAndOfEntries", 20, {
        {0, "1/4 tsp Cayenne (or"}, {1.23, "paprika)"}, {1.4, "1 tsp of white"}, {1.23, "pepper"},
        {1.35, "1 tbsp of very soft"}, {1.23, "butter"}, {1.4, "1/2 cup diced small"}, {1.29, "Andouille"},
        {1.35, "2 eggs"}, {1.4, "1 tsp thyme"}, {1.35, "1/2 cup Tomato Red"}, {1.29, "Sauce"}},
        "1/4 tsp Cayenne (or paprika)/1 tsp of white pepper/1 tbsp of very soft butter/1/2 cup diced small Andouille/2 eggs/"
        "1 tsp thyme/1/2 cup Tomato Red Sauce"},
    ListCase{"EntriesRoundedIntoTheSpaceOfRests", 20, {
        {0, "1 kg of black beans,"}, {1.24, "rinsed"}, {1.41, "2 kg of pork, cut or"}, {1.3, "in pieces"},
        {1.41, "4 lemons, quartered"}, {1.3, "lengthwise"}, {1.41, "Yucatan style tomato"}, {1.3, "sauce with chillies"},
        {1.35, "2 packs of tortillas"}, {1.3, "of maize"}, {1.41, "1 onion"}, {1.41, "2 eggs"}},
        "1 kg of black beans, rinsed/2 kg of pork, cut or in pieces/4 lemons, quartered lengthwise/"
        "Yucatan style tomato sauce with chillies/2 packs of tortillas of maize/1 onion/2 eggs"},
    ListCase{"AWordWiderThanItsColumn", 40, {
        {0, "1/2 cup larger"}, {1.2, "  Oats"}, {1.2, "Almonds, whole"}, {1.2, "1 tbsp roasted"}, {1.2, "  Rye"},
        {1.2, "Cranberries, a"}, {1.2, "  Lot"}, {1.2, "Confectioners-Sugar-X"}},
        "1/2 cup larger Oats/Almonds, whole/1 tbsp roasted Rye/Cranberries, a Lot/Confectioners-Sugar-X"},
    ListCase{"FullStopsEndEntries", 28, {
        {0, "1 kg of beans, and drained."}, {1.2, "2 kg of pork loin, cut into"}, {1.2, "        cubes."},
        {1.2, "1 cup of chopped coriander."}, {1.2, "1 avocado, cut into rather"}, {1.2, "        small pieces."},
        {1.2, "4 lemons that are quartered."}, {1.2, "        Tortillas"}},
        "1 kg of beans, and drained./2 kg of pork loin, cut into cubes./1 cup of chopped coriander./"
        "1 avocado, cut into rather small pieces./4 lemons that are quartered./Tortillas"},
    ListCase{"AQuotedNameBelowAFullLine", 20, {
        {0, "25g anchovies"}, {1.2, "800g peeled tomatoes"}, {1.2, "“sugo”"}, {1.2, "1 bunch of parsley"}},
        "25g anchovies/800g peeled tomatoes “sugo”/1 bunch of parsley"},
    ListCase{"NamesThatEndOthers", 20, {
        {0, "1 Medium"}, {1.2, "2 Carrots"}, {1.2, "3/4 cup Long Grained"}, {1.2, "Rice"},
        {1.2, "1 tsp Sesame, Black,"}, {1.2, "Seeds"}, {1.2, "1 Small Sweet Pepper"}, {1.2, "Salt"}},
        "1 Medium/2 Carrots/3/4 cup Long Grained Rice/1 tsp Sesame, Black, Seeds/1 Small Sweet Pepper/Salt"},
    ListCase{"AnEntryOverTwoColumns", 30, {
        {0, "1 white onion"}, {1.2, "2 cups of flour"}, {1.2, "8 to 10 radishes,"},
        {-3, "julienned or striped"}, {1.2, "4 lemons"}},
        "1 white onion/2 cups of flour/8 to 10 radishes, julienned or striped/4 lemons"},
    ListCase{"AnAmountOnALineOfItsOwn", 40, {
        {0, "2 cups"}, {1.2, "flour"}, {1.8, "1 tsp"}, {1.2, "salt"}, {1.8, "3"}, {1.2, "eggs"}},
        "2 cups flour/1 tsp salt/3 eggs"}),
    [](const auto& drawn) { return std::string(drawn.param.name); });
// clang-format on

TEST(LineFlow, JoinsNoLinesOfDifferentType)
{
    const TextLine label{QStringLiteral("From the kitchen of"), true, 0.78, 0, {0.1, 0.1, 0.19, 0.01}, 0.3};
    const TextLine entry{QStringLiteral("crab meat"), false, 1, 0, {0.1, 0.112, 0.09, 0.012}, 0.3};
    EXPECT_EQ(RecipeItems::ingredients({label, entry}).size(), 2);
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
