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
