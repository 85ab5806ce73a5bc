#include "helpers/document-reader/document/LineAssembly.h"
#include "helpers/document-reader/document/StepColumns.h"
#include "helpers/document-reader/document/TypeSize.h"
#include "helpers/document-reader/document/WordRows.h"

#include "reader/DocumentMessage.h"

using namespace ovrin;
using namespace ovrin::documentreader;
using testing::UnorderedElementsAre;

namespace {

Run run(const char* text, double x, double y, double width)
{
    return {QString::fromUtf8(text), {x, y, width, 10}};
}

std::vector<std::string> assembled(const QList<Run>& runs)
{
    std::vector<std::string> texts;
    for (const Run& line : assembledLines(runs)) {
        texts.push_back(line.text.toStdString());
    }
    return texts;
}

} // namespace

TEST(LineAssembly, PutsAmountsBeforeWhatTheyMeasure)
{
    EXPECT_THAT(assembled({run("1 cup", 50, 0, 25), run("½", 50, 20, 6), run("rice", 100, 0, 20),
                           run("lemon", 100, 20, 25), run("salt", 100, 40, 18)}),
                UnorderedElementsAre("1 cup rice", "½ lemon", "salt"));
    EXPECT_THAT(
        assembled({run("1", 50, 0, 6), run("Boil the water and wait.", 80, 0, 120),
                   run("until it sings", 80, 14, 70), run("2", 50, 28, 6), run("Add the tea.", 80, 28, 60)}),
        UnorderedElementsAre("1 Boil the water and wait.", "until it sings", "2 Add the tea."));
}

TEST(LineAssembly, KeepsColumnsApart)
{
    EXPECT_THAT(assembled({run("2 eggs", 50, 0, 30), run("1 cup milk", 130, 0, 50),
                           run("1 onion", 50, 20, 35), run("3 carrots", 130, 20, 45)}),
                UnorderedElementsAre("2 eggs", "1 cup milk", "1 onion", "3 carrots"));
    EXPECT_THAT(
        assembled({run("A line of the left column", 50, 0, 120), run("and one of the right", 190, 0, 100)}),
        UnorderedElementsAre("A line of the left column", "and one of the right"));
    // For how many a dish is stands in front of nothing.
    EXPECT_EQ(assembled({run("6-8 people", 50, 0, 50), run("the side, and roll it up", 130, 0, 120)}).size(),
              2U);
    // A number that hangs into the gutter leaves no more of it than a wide space.
    EXPECT_THAT(assembled({run("1. Fill a bowl with water for", 50, 0, 144), run("6. Bake it", 201, 0, 60),
                           run("all of the rice", 60, 14, 70), run("7. Let it rest", 201, 28, 70),
                           run("8. Serve", 201, 42, 40)}),
                UnorderedElementsAre("1. Fill a bowl with water for", "6. Bake it", "all of the rice",
                                     "7. Let it rest", "8. Serve"));
}

TEST(LineAssembly, JoinsWordsThatOnlyAWideSpaceParts)
{
    EXPECT_THAT(assembled({run("Serves", 50, 0, 30), run("four", 88, 1, 20), run("below", 88, 14, 20)}),
                UnorderedElementsAre("Serves four", "below"));
    EXPECT_TRUE(assembledLines({}).isEmpty());
}

TEST(LineAssembly, JoinsTheWordsOfAJustifiedLine)
{
    // The measure of two full lines; a table's row that does not fill it stays in its cells.
    EXPECT_THAT(assembled({run("pancakes, up to you. Wait until", 50, 0, 160), run("Make", 50, 14, 25),
                           run("smaller", 100, 14, 40), run("or bigger", 155, 14, 20),
                           run("tiny", 50, 28, 20), run("air", 90, 28, 15), run("bubbles", 125, 28, 40),
                           run("form", 185, 28, 25), run("and the first of them has burst", 50, 42, 160),
                           run("Flour", 50, 56, 30), run("white", 120, 56, 30)}),
                UnorderedElementsAre("pancakes, up to you. Wait until", "Make", "smaller", "or bigger",
                                     "tiny air bubbles form", "and the first of them has burst", "Flour",
                                     "white"));
}

TEST(LineAssembly, JoinsLettersWithSpaceBetweenThem)
{
    QList<documentreader::Run> letters;
    double x = 50;
    for (const QChar letter : QStringLiteral("RED SOUP")) {
        if (letter != u' ') {
            letters.append({letter, {x, 0, 6, 10}});
        }
        x += 9;
    }
    letters.append(run("with beets", 50, 20, 60));
    EXPECT_THAT(assembled(letters), UnorderedElementsAre("RED SOUP", "with beets"));
    EXPECT_THAT(assembled({run("A", 50, 0, 6), run("B", 90, 0, 6)}), UnorderedElementsAre("A", "B"));
}

TEST(LineAssembly, PutsALargeFirstLetterBeforeItsWord)
{
    const documentreader::Run initial{QStringLiteral("H"), {50, 0, 20, 24}};
    EXPECT_THAT(assembled({initial, run("eat the oil", 68, 0, 60), run("in a pot.", 72, 14, 50)}),
                UnorderedElementsAre("Heat the oil", "in a pot."));
    const documentreader::Run article{QStringLiteral("A"), {50, 0, 20, 24}};
    EXPECT_THAT(assembled({article, run("large pot", 72, 0, 60)}), UnorderedElementsAre("A large pot"));
    EXPECT_THAT(assembled({article, run("dd the oil", 72, 0, 60)}), UnorderedElementsAre("Add the oil"));
}

TEST(LineAssembly, TakesLigaturesApartAndNothingElse)
{
    EXPECT_EQ(withoutLigatures(QString::fromUtf8("ﬀﬁﬂﬃﬄﬅﬆ ½ ℃ ①")),
              QString::fromUtf8("fffiflffifflstst ½ ℃ ①"));
}

TEST(DocumentAnswer, GoesThereAndBackAndRefusesWhatIsBroken)
{
    const reader::DocumentAnswer answer{{{{QStringLiteral("Soup"), {0.1, 0.2, 0.3, 0.4}}}, {}}};
    const QByteArray bytes = answer.encoded();
    const auto decoded = reader::DocumentAnswer::decoded(bytes);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->pages, answer.pages);
    for (qsizetype size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(reader::DocumentAnswer::decoded(bytes.first(size))) << size;
    }
    EXPECT_FALSE(reader::DocumentAnswer::decoded(bytes + 'x'));
    const reader::DocumentAnswer wild{
        {{{QStringLiteral("x"), {0, 0, std::numeric_limits<double>::infinity(), 1}}}}};
    EXPECT_FALSE(reader::DocumentAnswer::decoded(wild.encoded()));
    const reader::DocumentAnswer many{QList<QList<reader::PageLine>>(reader::maximumPages + 1)};
    EXPECT_FALSE(reader::DocumentAnswer::decoded(many.encoded()));
}

TEST(TypeSize, TakesTheHeightFromTheLettersWhereTheFontDoesNotSayIt)
{
    // "Lentil soup" in 24 points, "with lemon" in 12: browsers' fonts give heights off by one factor.
    const auto heights = [](double factor) {
        std::vector<Word> words{{QStringLiteral("Lentil"), {50, 0, 72, 29 * factor}},
                                {QStringLiteral("soup"), {130, 0, 55, 29 * factor}},
                                {QStringLiteral("with"), {50, 40, 24, 14 * factor}},
                                {QStringLiteral("lemon"), {80, 40, 36, 14 * factor}},
                                {QStringLiteral("2"), {300, 40, 7, 9 * factor}}};
        std::vector<double> result;
        for (const Word& word : withTrueHeights(std::move(words))) {
            result.push_back(word.box.height());
        }
        return result;
    };
    EXPECT_THAT(heights(1), testing::ElementsAre(29, 29, 14, 14, 9));
    for (const double factor : {0.4, 2.1}) {
        EXPECT_THAT(heights(factor),
                    testing::Pointwise(testing::DoubleNear(4), std::vector<double>{29, 29, 14, 14, 9}))
            << factor;
    }
    EXPECT_TRUE(withTrueHeights({}).empty());
}

TEST(TypeSize, PartsColumnsThatTypeTakenForTallerMadeOneLine)
{
    std::vector<Word> words{{QStringLiteral("Sear"), {50, 0, 24, 27}, true, 1},
                            {QStringLiteral("the"), {77, 0, 17, 27}, true, 2},
                            {QStringLiteral("pork"), {97, 0, 24, 27}, true, 3},
                            {QStringLiteral("Serve"), {143, 0, 32, 27}, false, -1}};
    words = withTrueHeights(std::move(words));
    EXPECT_EQ(words[1].next, 2);
    EXPECT_EQ(words[2].next, -1);
}

TEST(TypeSize, TellsSizesApartThatAFontGivesOneHeight)
{
    // A title and a small label, as tall by what the font says.
    std::vector<Word> words{{QStringLiteral("LENTIL"), {50, 0, 118, 18}, true, 1},
                            {QStringLiteral("SOUP"), {180, 0, 84, 18}},
                            {QStringLiteral("SERVES"), {50, 60, 29, 18}}};
    words = withTrueHeights(std::move(words));
    EXPECT_GT(words[0].box.height(), 3 * words[2].box.height());
    EXPECT_EQ(words[0].box.height(), words[1].box.height());
}

TEST(WordRows, PartsTheLinesBesideATallNumber)
{
    const auto word = [](const char* text, double x, double y, double height, qsizetype next) {
        return Word{QString::fromUtf8(text), {x, y, 20, height}, false, next};
    };
    struct
    {
        std::vector<Word> words;
        std::vector<qsizetype> next;
    } const cases[] = {
        // A number beside "If you" above "wax paper", mixed from left to right.
        {{word("21", 0, 0, 36, 1), word("If", 30, 10, 15, 2), word("wax", 30, 25, 15, 3),
          word("you", 52, 10, 15, 4), word("paper", 53, 25, 15, -1)},
         {1, 3, 4, -1, -1}},
        // Boxes as tall as two lines.
        {{word("cloves", 0, 0, 28, 1), word("crushed", 10, 14, 28, -1)}, {-1, -1}},
        // One line: a title beside a small label, and a raised figure.
        {{word("SOUP", 0, 0, 30, 1), word("for", 30, 12, 12, 2), word("two", 52, 12, 12, -1)}, {1, 2, -1}},
        {{word("salt", 0, 10, 12, 1), word("1", 22, 8, 8, 2), word("to", 30, 10, 12, -1)}, {1, 2, -1}},
    };
    for (const auto& line : cases) {
        std::vector<qsizetype> next;
        for (const Word& one : withRowsApart(line.words)) {
            next.push_back(one.next);
        }
        EXPECT_EQ(next, line.next) << line.words.front().text.toStdString();
    }
}

TEST(StepColumns, PartNumbersFromTheLineThatTheyReachUpTo)
{
    struct Line
    {
        double y;
        /// The line's words, each as wide as six points a letter, and where each begins.
        std::vector<std::pair<const char*, double>> words;
    };
    const auto chainOf = [](const std::vector<Line>& lines) {
        std::vector<Word> words;
        for (const Line& line : lines) {
            for (const auto& [text, x] : line.words) {
                const bool isLast = text == line.words.back().first;
                words.push_back({QString::fromUtf8(text),
                                 {x, line.y, 6.0 * qstrlen(text), 10},
                                 !isLast,
                                 isLast ? -1 : static_cast<qsizetype>(words.size()) + 1});
            }
        }
        return words;
    };
    const auto begun = [](const std::vector<Word>& words) {
        return std::count_if(words.begin(), words.end(), [](const Word& word) { return word.beginsStep; });
    };
    const std::vector<Word> words =
        withStepColumnsApart(chainOf({{0, {{"9.", 103}, {"Bake", 118}}},
                                      {20, {{"stir", 70}, {"10.", 97}, {"Rest", 118}}},
                                      {40, {{"11.", 97}, {"Serve", 118}}}}));
    EXPECT_EQ(begun(words), 3);
    EXPECT_EQ(words[2].next, -1);
    EXPECT_EQ(words[3].next, 4);
    QList<documentreader::Run> runs{run("stir", 70, 20, 24), run("10. Rest", 97, 20, 45)};
    EXPECT_EQ(assembled(runs).size(), 1);
    runs.last().beginsStep = true;
    EXPECT_EQ(assembled(runs).size(), 2);
    // One number is enough where the lines of its text begin below each other.
    EXPECT_EQ(
        begun(withStepColumnsApart(chainOf({{0, {{"with", 46}, {"oil", 73}, {"12.", 97}, {"Slice", 118}}},
                                            {14, {{"thinly", 118}, {"and", 160}}},
                                            {28, {{"serve", 118}}}}))),
        1);
    // Numbers behind a word that all of them have, and such as do not count up.
    EXPECT_EQ(begun(withStepColumnsApart(chainOf({{0, {{"Step", 70}, {"1.", 97}, {"Bake", 118}}},
                                                  {20, {{"Step", 70}, {"2.", 97}, {"Rest", 118}}},
                                                  {40, {{"Step", 70}, {"3.", 97}, {"Serve", 118}}}}))),
              0);
    EXPECT_EQ(begun(withStepColumnsApart(chainOf({{0, {{"in", 80}, {"12.", 97}, {"Bake", 118}}},
                                                  {20, {{"4.", 97}, {"Rest", 118}}},
                                                  {40, {{"9.", 97}, {"Serve", 118}}}}))),
              0);
}
