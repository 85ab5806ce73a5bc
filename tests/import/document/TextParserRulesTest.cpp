#include "import/document/LineEndHyphens.h"
#include "import/document/RecipeTextParser.h"

#include "import/document/RecipeFacts.h"
#include "import/document/RecipeItems.h"

using namespace ovrin;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

TEST(TextParserRules, KnowAStatusBar)
{
    for (const char* line : {"9:41", " 9:41 AM ", "9:41 am tue jun 4", "tue 9:41 pm", "87%", "100 %",
                             "tue jun 4 9:41", "4 jun 21:07", "12:05 4 july"}) {
        EXPECT_TRUE(RecipeTextParser::isStatusBar(text(line))) << line;
    }
    for (const char* line : {"9:41 is the time", "1887%", "tue", "9:4", "cook 87%"}) {
        EXPECT_FALSE(RecipeTextParser::isStatusBar(text(line))) << line;
    }
}

TEST(TextParserRules, AddUpMinutes)
{
    const std::pair<const char*, std::optional<qint64>> cases[] = {
        {"1 hour 30 mins", 90},       {"45 min", 45},     {"2H", 120},
        {"a few minutes", {}},        {"0 minutes", {}},  {"99999999999999999999 min", {}},
        {"1 hr 5 m, 10 minutes", 75}, {"30 minutos", {}},
    };
    for (const auto& [line, minutes] : cases) {
        EXPECT_EQ(RecipeTextParser::minutes(text(line)), minutes) << line;
    }
    EXPECT_GT(RecipeTextParser::minutes(text("9223372036854775807 hours 9223372036854775807 hours")), 0);
}

TEST(TextParserRules, ReadYieldAndTimes)
{
    RecipeDraft draft;
    EXPECT_TRUE(RecipeTextParser::metadata(text("Serves: 4 to 6"), draft));
    EXPECT_EQ(draft.yield, u"4 to 6");
    EXPECT_FALSE(RecipeTextParser::metadata(text("Makes ") + QString(60, u'x'), draft));
    EXPECT_TRUE(RecipeTextParser::metadata(text("Makes ") + QString(59, u'x'), draft));
    EXPECT_TRUE(RecipeTextParser::metadata(text("Prep time: 15 min, Cook time: 1 hr 5 min"), draft));
    EXPECT_EQ(draft.prepMinutes, 15);
    EXPECT_EQ(draft.cookMinutes, 65);
    EXPECT_TRUE(RecipeTextParser::metadata(text("Active time 20 minutes"), draft));
    EXPECT_EQ(draft.cookMinutes, 20);
    EXPECT_TRUE(RecipeTextParser::metadata(text("Cook time: 0 minutes"), draft));
    EXPECT_EQ(draft.cookMinutes, std::nullopt);
    draft.totalMinutes = 7;
    EXPECT_FALSE(RecipeTextParser::metadata(text("Total time: about an hour"), draft));
    EXPECT_EQ(draft.totalMinutes, 7);
}

TEST(TextParserRules, ReadFactsInTheFormsThatPagesUse)
{
    struct
    {
        QStringList lines;
        QString yield;
        std::optional<qint64> prep, cook, total;
    } const cases[] = {
        {{text("Prep 10 min   •   Cook 20 min   •   Serves 4–6")}, text("4–6"), 10, 20, {}},
        {{text("Total time: 1 hr 15 min — Yield: 8 servings")}, text("8 servings"), {}, {}, 75},
        {{text("25 min · 4 servings · Easy")}, text("4 servings"), {}, {}, 25},
        {{text("Prep Time 15 mins Cook Time 30 mins Total Time 45 mins Servings: 4")}, text("4"), 15, 30, 45},
        {{text("Prep Time"), text("Cook Time"), text("Servings"), text("10 mins"), text("1 hour"), text("4")},
         text("4"),
         10,
         60,
         {}},
        {{text("SERVINGS"), text("PREP TIME"), text("4"), text("10 min")}, text("4"), 10, {}, {}},
        {{text("Für 4 Personen"), text("Vorbereitungszeit: 1½ Std."), text("Kochzeit: 1 Std. 20 Min.")},
         text("Für 4 Personen"),
         90,
         80,
         {}},
        {{text("Temps de préparation : 15 minutes"), text("Temps de cuisson : 2 heures")}, {}, 15, 120, {}},
        {{text("Tiempo de cocción: 40 minutos"), text("Raciones: 6")}, text("6"), {}, 40, {}},
        {{text("Bereidingstijd: 30 minuten"), text("Voor 2 personen")}, text("Voor 2 personen"), {}, {}, 30},
        {{text("Czas przygotowania: 1 godz. 15 min"), text("4 porcje")}, text("4 porcje"), 75, {}, {}},
    };
    for (const auto& row : cases) {
        RecipeDraft draft;
        RecipeFacts facts(draft);
        for (const QString& line : row.lines) {
            EXPECT_TRUE(facts.read(line)) << line.toStdString();
        }
        const auto where = row.lines.first().toStdString();
        EXPECT_EQ(draft.yield.toStdString(), row.yield.toStdString()) << where;
        EXPECT_EQ(draft.prepMinutes, row.prep) << where;
        EXPECT_EQ(draft.cookMinutes, row.cook) << where;
        EXPECT_EQ(draft.totalMinutes, row.total) << where;
    }
    for (const char* line : {"2 cups flour", "Cook the onion for 5 minutes until it is soft and golden.",
                             "makes a fine lunch", "Total bliss", "For the sauce", "Preparation"}) {
        EXPECT_FALSE(RecipeFacts::isFact(text(line))) << line;
    }
}

TEST(TextParserRules, TellHeadingsFromLinesThatBeginLikeOne)
{
    const QStringList words{text("ingredients"), text("method")};
    EXPECT_TRUE(RecipeTextParser::isHeading(text(" ingredients: "), words));
    EXPECT_TRUE(RecipeTextParser::isHeading(text("ingredients for two"), words));
    EXPECT_FALSE(RecipeTextParser::isHeading(text("ingredients 2 cups"), words));
    EXPECT_FALSE(RecipeTextParser::isHeading(text("method of the old masters"), words));
    EXPECT_FALSE(RecipeTextParser::isHeading(text("ingredientsx"), words));
    EXPECT_FALSE(RecipeTextParser::isHeading(text("ingredients"), {}));
}

TEST(TextParserRules, BeginParagraphsOnlyWhereASentenceMayBegin)
{
    EXPECT_TRUE(RecipeTextParser::startsParagraph(text("Stir."), text("Mix well."), true));
    EXPECT_FALSE(RecipeTextParser::startsParagraph(text("Stir."), text("Mix well."), false));
    EXPECT_FALSE(RecipeTextParser::startsParagraph(text(" stir."), text("Mix well."), true));
    for (const char* previous :
         {"Mix,", "Mix;", "Mix (", "Mix –", "Mix —", "Mix -", "Mix &", "Mix and", "Mix THE"}) {
        EXPECT_FALSE(RecipeTextParser::startsParagraph(text("Stir."), text(previous), true)) << previous;
    }
}

TEST(TextParserRules, JoinLinesIntoParagraphs)
{
    const QList<TextLine> lines =
        TextLines::fromPlainText(text("A soup for\ncold days, with\nLemon.\n\nAnother paragraph."));
    EXPECT_EQ(RecipeTextParser::paragraphs(lines),
              QStringList({text("A soup for cold days, with Lemon."), text("Another paragraph.")}));
}

TEST(TextParserRules, JoinHyphensWhereTheWordCallsForIt)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"in the refrig-", "erator", "in the refrigerator"},
        {"heat to medium-", "high", "heat to medium-high"},
        {"all-", "purpose flour", "all-purpose flour"},
        {"Zwiebel-", "und Lauchringe", "Zwiebel- und Lauchringe"},
        {"7-", "inch pan", "7- inch pan"},
        {"Räucher\u00AD", "tofu", "Räuchertofu"},
        {"Anna-", "Maria", "Anna-Maria"},
    };
    for (const auto& [left, right, whole] : cases) {
        EXPECT_EQ(RecipeItems::joined(text(left), text(right)).toStdString(), whole);
    }
}

TEST(TextParserRules, TellHyphensOfWordsFromThoseOfLineEnds)
{
    const auto told = [](const char* lines) {
        QStringList texts;
        for (const TextLine& line : LineEndHyphens::told(TextLines::fromPlainText(text(lines)))) {
            texts.append(line.text);
        }
        return RecipeItems::joined(texts[0], texts[1]).toStdString();
    };
    EXPECT_EQ(told("Fry the ginger-\ngarlic paste.\nUse fresh ginger and garlic."),
              "Fry the ginger-garlic paste.");
    EXPECT_EQ(told("Chop the ginger-\ngarlic, then the gingergarlic."),
              "Chop the gingergarlic, then the gingergarlic.");
    EXPECT_EQ(told("Let it cool in the refrig-\nerator."), "Let it cool in the refrigerator.");
    const std::string whole = "1 bottle tomato-\nvegetable juice\n";
    std::string wrapped;
    for (int i = 0; i < 12; ++i) {
        wrapped += "\nThese are lines of a text\nthat go on.";
    }
    EXPECT_EQ(told((whole + wrapped).c_str()), "1 bottle tomato-vegetable juice")
        << "a page that divides words divides more than one";
}
