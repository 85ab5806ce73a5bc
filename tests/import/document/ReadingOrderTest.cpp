#include "import/document/DocumentTextReader.h"

using namespace ovrin;
using testing::ElementsAre;

namespace {

TextBox box(const char* text, double x, double y, double width = 0.3, double height = 0.02)
{
    return {QString::fromUtf8(text), {x, y, width, height}};
}

std::vector<std::string> textsOf(const QList<TextLine>& lines)
{
    std::vector<std::string> texts;
    for (const TextLine& line : lines) {
        texts.push_back(line.text.toStdString());
    }
    return texts;
}

QList<TextBox> twoColumns(double rightTop = 0.2)
{
    return {box("r1", 0.6, rightTop), box("l1", 0.05, 0.2),  box("r2", 0.6, rightTop + 0.03),
            box("l2", 0.05, 0.23),    box("l3", 0.05, 0.26), box("r3", 0.6, rightTop + 0.06)};
}

} // namespace

TEST(ReadingOrder, ReadsOneColumnFromTopToBottomAndMarksBlocks)
{
    const auto lines = DocumentTextReader::readingOrder(
        {box("third", 0.1, 0.2), box("first", 0.1, 0.1, 0.5, 0.04), box("second", 0.1, 0.15)}, 4);
    EXPECT_THAT(textsOf(lines), ElementsAre("first", "second", "third"));
    EXPECT_TRUE(lines[0].startsBlock);
    EXPECT_FALSE(lines[1].startsBlock);
    EXPECT_TRUE(lines[2].startsBlock); // 0.03 above it is more than 0.9 of 0.02
    EXPECT_DOUBLE_EQ(lines[0].relativeHeight, 2);
    EXPECT_EQ(lines[2].page, 4);
    EXPECT_TRUE(DocumentTextReader::readingOrder({}).isEmpty());
}

TEST(ReadingOrder, ReadsTheLeftColumnFirstAndKeepsSpanningLinesInPlace)
{
    // Lines across the page count against columns: it takes more than three lines a side for each.
    auto boxes = twoColumns();
    for (int i = 4; i <= 8; ++i) {
        boxes.append(box("l", 0.05, 0.17 + 0.03 * i));
        boxes.append(box("r", 0.6, 0.17 + 0.03 * i));
    }
    boxes.prepend(box("foot", 0.05, 0.9, 0.9));
    boxes.append(box("head", 0.05, 0.05, 0.9));
    const auto lines = DocumentTextReader::readingOrder(boxes);
    EXPECT_THAT(textsOf(lines), ElementsAre("head", "l1", "l2", "l3", "l", "l", "l", "l", "l", "r1", "r2",
                                            "r3", "r", "r", "r", "r", "r", "foot"));
    EXPECT_TRUE(lines[9].startsBlock) << "the eye jumps up into the right column";
}

TEST(ReadingOrder, ReadsARightColumnFirstThatBeginsWellAboveTheLeftOne)
{
    // Three line heights are 0.06: one begins just within them, one just beyond.
    EXPECT_EQ(DocumentTextReader::readingOrder(twoColumns(0.2 - 0.059))[0].text, u"l1");
    EXPECT_EQ(DocumentTextReader::readingOrder(twoColumns(0.2 - 0.061))[0].text, u"r1");
}

TEST(ReadingOrder, NeedsThreeLinesOnEachSideAndAClearGapForColumns)
{
    auto few = twoColumns();
    few.removeLast();
    EXPECT_THAT(textsOf(DocumentTextReader::readingOrder(few)), ElementsAre("r1", "l1", "r2", "l2", "l3"));
    auto crossed = twoColumns();
    crossed.append(box("across", 0.05, 0.5, 0.9));
    EXPECT_EQ(DocumentTextReader::readingOrder(crossed)[1].text, u"l1")
        << "one line across outweighs three in each column";
}

TEST(ReadingOrder, PartsBlocksAtFiveTypicalHeights)
{
    const auto blocksAt = [](double top) {
        return DocumentTextReader::blocksByGap({box("b", 0, top, 0.1, 0.5), box("a", 0, 0, 0.1, 0.5)}, 1,
                                               0.25)
            .size();
    };
    EXPECT_EQ(blocksAt(0.5 + 5 * 0.25), 2);
    EXPECT_EQ(blocksAt(0.5 + 5 * 0.25 - 0.001), 1);
    EXPECT_TRUE(DocumentTextReader::blocksByGap({}, 0, 1).isEmpty());
}

TEST(ReadingOrder, RemovesIconsInFrontOfNumbersOnly)
{
    EXPECT_THAT(textsOf(DocumentTextReader::readingOrder(
                    {box("⏱ 30 min", 0, 0), box("© Anna 2019", 0, 0.1), box("© 2019 Anna", 0, 0.2)})),
                ElementsAre("30 min", "© Anna 2019", "© 2019 Anna"));
}

TEST(TextLines, GoThroughJsonAndComeFromPlainText)
{
    const QList<TextLine> lines{{QStringLiteral("Soup"), true, 1.5, 2}};
    EXPECT_EQ(TextLines::fromJson(TextLines::toJson(lines)), lines);
    EXPECT_FALSE(TextLines::fromJson("{}"));
    EXPECT_FALSE(TextLines::fromJson(R"([{"text": 1}])"));
    const auto plain = TextLines::fromPlainText(QStringLiteral("a\r\nb\n\nc"));
    ASSERT_EQ(plain.size(), 4);
    EXPECT_TRUE(plain[0].startsBlock);
    EXPECT_FALSE(plain[1].startsBlock);
    EXPECT_TRUE(plain[3].startsBlock);
    EXPECT_EQ(plain[0].text, u"a");
}
