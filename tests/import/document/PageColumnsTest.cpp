#include "PagePicture.h"

#include "import/document/PageColumns.h"
#include "import/document/PageFurniture.h"

using namespace ovrin;

namespace {

struct PageCase
{
    const char* name;
    const char* picture;
    /// The texts in order, parted by "/"; "#" in front of one that starts a block.
    const char* read;
};

class PageColumnsOf : public testing::TestWithParam<PageCase>
{
};

std::string reading(const QList<TextLine>& lines)
{
    QStringList texts;
    for (const TextLine& line : lines) {
        texts.append((line.startsBlock ? QStringLiteral("#") : QString()) + line.text);
    }
    return texts.join(u'/').toStdString();
}

} // namespace

TEST_P(PageColumnsOf, AreReadOneAfterTheOther)
{
    EXPECT_EQ(reading(PageColumns::regrouped(pagePicture(GetParam().picture))), GetParam().read);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Pages, PageColumnsOf, testing::Values(
    PageCase{"BelowSpanningLines",
        "A soup for all of the cold days that there are\n"
        "Prep time: 10 min and cooking time: 20 min\n"
        "\n"
        "1 onion                 Cut the onion into\n"
        "2 carrots               small cubes.\n"
        "Salt                    Boil everything.\n"
        "\n"
        "Copied from the book of all of grandmother's soups\n",
        "#A soup for all of the cold days that there are/Prep time: 10 min and cooking time: 20 min/"
        "#1 onion/2 carrots/Salt/#Cut the onion into/small cubes./Boil everything./"
        "#Copied from the book of all of grandmother's soups"},
    PageCase{"InSeveralBands",
        "1 onion                 Cut the onion into\n"
        "2 carrots               small cubes.\n"
        "Salt                    Boil everything.\n"
        "For the dumplings, which are made on the day before\n"
        "200 g flour             Knead the dough.\n"
        "1 egg                   Let it rest.\n"
        "Milk                    Form dumplings.\n",
        "#1 onion/2 carrots/Salt/#Cut the onion into/small cubes./Boil everything./"
        "#For the dumplings, which are made on the day before/"
        "#200 g flour/1 egg/Milk/#Knead the dough./Let it rest./Form dumplings."},
    PageCase{"OfAListAboveTheHeadingOfTheMethod",
        "1 onion                      1 lemon\n"
        "2 carrots                    Salt\n"
        "3 leeks                      Pepper\n"
        "4 eggs\n"
        "\n"
        "Method\n"
        "Cut the onion, the carrots and the leeks into small cubes.\n",
        "#1 onion/2 carrots/3 leeks/4 eggs/#1 lemon/Salt/Pepper/#Method/"
        "Cut the onion, the carrots and the leeks into small cubes."},
    PageCase{"OfTwoLinesUnderAHeading",
        "Ingredients\n"
        "1 onion                 Salt\n"
        "2 carrots               Pepper\n"
        "\n"
        "Method\n"
        "Cut the onion into      Boil everything\n"
        "small cubes.            until it is soft.\n"
        "Peel the carrots.       Eat it.\n",
        "#Ingredients/1 onion/2 carrots/#Salt/Pepper/#Method/"
        "Cut the onion into/small cubes./Peel the carrots./#Boil everything/until it is soft./Eat it."},
    PageCase{"WithATipInOneOfThem",
        "1 onion                 Cut the onion into\n"
        "2 carrots               small cubes.\n"
        "3 leeks                 Peel the carrots.\n"
        "TIP\n"
        "Warm the plates.        Boil everything\n"
        "                        until it is soft.\n",
        "#1 onion/2 carrots/3 leeks/TIP/Warm the plates./#Cut the onion into/small cubes./Peel the carrots./"
        "#Boil everything/until it is soft."},
    PageCase{"UnderHeadingsOneAfterTheOther",
        "Ingredients\n"
        "1 onion                 Salt\n"
        "2 carrots               Pepper\n"
        "3 leeks                 Oil\n"
        "\n"
        "Method\n"
        "Cut the onion into      Boil everything\n"
        "small cubes.            until it is soft.\n"
        "Peel the carrots.       Eat it.\n",
        "#Ingredients/1 onion/2 carrots/3 leeks/#Salt/Pepper/Oil/#Method/"
        "Cut the onion into/small cubes./Peel the carrots./#Boil everything/until it is soft./Eat it."},
    PageCase{"WhoseLabelsStandBesideTheirTexts",
        "   Servings       4\n"
        "  Prep time       10 min\n"
        "Ingredients       1 onion\n"
        "                  2 carrots\n"
        "\n"
        " Directions       Cut it all into cubes.\n"
        "                  Boil the cubes.\n",
        "#Servings/4/Prep time/10 min/Ingredients/1 onion/2 carrots/#Directions/Cut it all into cubes./"
        "Boil the cubes."},
    PageCase{"OfThree",
        "1 onion           2 eggs            Cut it all.\n"
        "2 carrots         Milk              Boil it.\n"
        "Salt              Butter            Eat it.\n",
        "#1 onion/2 carrots/Salt/#2 eggs/Milk/Butter/#Cut it all./Boil it./Eat it."},
    PageCase{"BelowATitleOverOneOfThem",
        "                        Onion soup\n"
        "\n"
        "1 onion                 Cut the onion into\n"
        "2 carrots               small cubes.\n"
        "Salt                    Boil everything.\n",
        "#Onion soup/#1 onion/2 carrots/Salt/#Cut the onion into/small cubes./Boil everything."},
    PageCase{"ThatAreTooShortForColumns",
        "Prep                Cook                Serves\n"
        "10 min              20 min              4\n",
        "#Prep/Cook/Serves/10 min/20 min/4"},
    PageCase{"OfOnlyOneColumnSetInNowAndThen",
        "A\n"
        "B\n"
        "C\n"
        "                     D\n"
        "                     E\n"
        "                     F\n",
        "#A/B/C/D/E/F"},
    PageCase{"InTilesThatAreCountedAlongTheRows",
        "Potato soup for two\n"
        "\n"
        "4 potatoes        1 Peel the        2 boil them in     3 Mash them\n"
        "1 Leek            potatoes.         the stock.         well.\n"
        "Salt\n"
        "Stock             4 Cut the leek    5 10 minutes\n"
        "                  small.            later add it.\n"
        "\n"
        "A soup that everybody likes on a cold evening in winter, and not only then\n",
        "#Potato soup for two/#4 potatoes/1 Leek/Salt/Stock/#1. Peel the/potatoes./#2. boil them in/the stock./"
        "#3. Mash them/well./#4. Cut the leek/small./#5. 10 minutes/later add it./"
        "#A soup that everybody likes on a cold evening in winter, and not only then"},
    PageCase{"BelowAHeadingInTheMiddle",
        "                    Onion soup\n"
        "\n"
        "                    Ingredients\n"
        "\n"
        "1 onion                           1 l stock\n"
        "2 carrots                         Salt\n"
        "3 leeks                           Pepper\n"
        "\n"
        "Method\n",
        "#Onion soup/#Ingredients/#1 onion/2 carrots/3 leeks/#1 l stock/Salt/Pepper/#Method"},
    PageCase{"OfWhichOneBeginsHigher",
        "                              Ingredients\n"
        "\n"
        "                              1 onion\n"
        "\n"
        "Onion soup                    2 carrots\n"
        "\n"
        "Serves 4                      3 leeks\n"
        "\n"
        "A quick soup                  Salt\n",
        "#Onion soup/#Serves 4/#A quick soup/#Ingredients/#1 onion/#2 carrots/#3 leeks/#Salt"},
    PageCase{"OfAGridOfCells",
        "1 pound of rice         2 cups of red           1 onion\n"
        "                        (or white) wine\n"
        "\n"
        "3 carrots               Salt                    4 eggs\n",
        "#1 pound of rice/#2 cups of red/(or white) wine/#1 onion/#3 carrots/#Salt/#4 eggs"},
    PageCase{"OfAListWhoseAmountsCountUp",
        "1 onion, chopped        2 red peppers\n"
        "200 g rice              1 l stock\n"
        "3 leeks                 4 tomatoes\n",
        "#1 onion, chopped/200 g rice/3 leeks/#2 red peppers/1 l stock/4 tomatoes"},
    PageCase{"WhoseCellsMakeUpATable",
        "Flour               200 g\n"
        "Sugar, brown        1 cup\n"
        "Eggs                2\n"
        "Salt\n"
        "Milk                1/2 l\n",
        "#Flour 200 g/Sugar, brown 1 cup/Eggs 2/Salt/Milk 1/2 l"}),
    [](const auto& drawn) { return std::string(drawn.param.name); });
// clang-format on

TEST(PageColumns, ReachAsFarAsAnyTextWhereNothingStandsBesideThem)
{
    const QList<TextLine> lines =
        PageColumns::regrouped(pagePicture("1 tbsp of the best curry paste\n"
                                           "drumsticks\n"
                                           "\n"
                                           "\n"
                                           "\n"
                                           "\n"
                                           "Cut the chicken into     Fry it in hot oil of peanuts, and\n"
                                           "strips, and mix it       serve it with rice and cucumbers\n"
                                           "with the paste.          on skewers.\n"));
    EXPECT_NEAR(lines[0].columnRight, 58 / 80.0, 0.001);
    EXPECT_NEAR(lines[2].columnRight, 20 / 80.0, 0.001);
}

TEST(PageColumns, LeaveLinesWithoutPlacesAndPagesOfTooManyLinesAsTheyAre)
{
    QList<TextLine> lines = TextLines::fromPlainText(QStringLiteral("b\na\nc"));
    EXPECT_EQ(PageColumns::regrouped(lines), lines);
    for (TextLine& line : lines) {
        line.place = {std::nan(""), 0, 1, 1};
    }
    EXPECT_EQ(PageColumns::regrouped(lines).size(), 3);
    EXPECT_EQ(PageColumns::regrouped(lines)[0].text, u"b");
    lines.clear();
    for (int i = 0; i < 2000; ++i) {
        lines.append({QString::number(i), false, 1, 0, {i % 2 * 0.5, 1 - i / 2000.0, 0.1, 0.0004}});
    }
    EXPECT_EQ(PageColumns::regrouped(lines), lines);
}

TEST(PageColumns, LeaveNumbersInsideThePageToTheRecipe)
{
    const QList<TextLine> cells = pagePicture("\n\n\n\n\n\n\n\n\n\n"
                                              "  8               Boil the\n"
                                              "                  carrots.\n"
                                              "  9               Eat them\n"
                                              "                  all.",
                                              1);
    EXPECT_EQ(PageFurniture::removed(cells).size(), cells.size());
    QList<TextLine> withNumber = cells;
    withNumber.append({QStringLiteral("8"), true, 1, 1, {0.5, 0.96, 0.02, 0.02}});
    EXPECT_EQ(PageFurniture::removed(withNumber), cells);
}

TEST(PageColumns, LeaveOutWhatStandsAloneAtThePagesFoot)
{
    QList<TextLine> lines = pagePicture("Soup\n2 eggs\n1 onion\nBoil it.\nEat it.");
    const QList<TextLine> page = lines;
    lines.append({QStringLiteral("The Sunday Table, October"), true, 1, 0, {0.6, 0.95, 0.3, 0.015}});
    lines.append({QStringLiteral("64"), true, 1, 0, {0.1, 0.95, 0.02, 0.015}});
    EXPECT_EQ(PageFurniture::removed(lines), page);
}

TEST(PageColumns, LeaveOutLabelsOfAdvertisementsButNoRestOfAnEntry)
{
    const auto line = [](const char16_t* text) {
        return TextLine{QString::fromUtf16(text), false, 1, 0, {}};
    };
    const QList<TextLine> page{line(u"2 eggs"), line(u"Cranberries (adjust"), line(u"amount"),
                               line(u"to preference)")};
    QList<TextLine> lines = page;
    lines.insert(1, line(u"Anzeige"));
    lines.append(line(u"Amount"));
    lines.append(line(u"Publicité"));
    QList<TextLine> kept = PageFurniture::removed(lines);
    ASSERT_EQ(kept.size(), page.size());
    EXPECT_EQ(kept, page);
}
