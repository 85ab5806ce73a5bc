#include "fuzz/import/DocumentTargets.h"

#include "fuzz/Require.h"
#include "import/document/DocumentTextReader.h"
#include "import/document/DrawnOrder.h"
#include "import/document/GeneratedRecipe.h"
#include "import/document/RecipeTextParser.h"
#include "reader/DocumentMessage.h"
#include "reader/Frame.h"

#include <algorithm>

namespace ovrin::fuzz {

namespace {

void requireSoundLists(const RecipeDraft& draft)
{
    const auto isEmpty = [](const QString& text) { return text.isEmpty(); };
    require(std::none_of(draft.ingredients.begin(), draft.ingredients.end(), isEmpty),
            "no ingredient is empty");
    for (const RecipeStep& step : draft.steps) {
        require(!step.paragraphs.isEmpty(), "no step is empty");
        require(std::none_of(step.paragraphs.begin(), step.paragraphs.end(), isEmpty),
                "no paragraph is empty");
    }
}

} // namespace

void recipeText(QByteArrayView bytes)
{
    QList<TextLine> lines = TextLines::fromPlainText(QString::fromUtf8(bytes));
    for (TextLine& line : lines) {
        if (line.text.startsWith(u"# ")) {
            line.text = line.text.mid(2);
            line.relativeHeight = 2;
        } else if (line.text.startsWith(u'\f')) {
            line.page = 1;
        }
    }
    requireSoundLists(RecipeTextParser::parse(lines));
    const QStringList paragraphs = RecipeTextParser::paragraphs(lines);
    require(paragraphs.size() <= lines.size(), "lines are joined, not made");
    require(TextLines::fromJson(TextLines::toJson(lines)).has_value(), "lines can be read back");
    TextLines::fromJson(bytes.toByteArray());
}

void readingOrder(QByteArrayView bytes)
{
    QList<TextBox> boxes;
    const auto at = [&](qsizetype i) {
        return static_cast<unsigned char>(bytes[i]) + 256.0 * static_cast<signed char>(bytes[i + 1]);
    };
    for (qsizetype i = 0; i + 8 <= bytes.size() && boxes.size() < 500; i += 8) {
        boxes.append({QString::number(i),
                      {at(i) / 256, at(i + 2) / 256, at(i + 4) / 2560, at(i + 6) / 2560},
                      static_cast<int>(bytes[i] & 31)});
    }
    const QList<TextLine> lines = DocumentTextReader::readingOrder(boxes);
    require(lines.size() == boxes.size(), "no box is lost or doubled");
    QStringList texts;
    for (const TextLine& line : lines) {
        texts.append(line.text);
    }
    require(texts.removeDuplicates() == 0, "each box is read once");
    require(lines.isEmpty() || lines.first().startsBlock, "the first line starts a block");
    QStringList drawn;
    for (const TextLine& line : DrawnOrder::regrouped(lines)) {
        drawn += line.text.split(u' ');
    }
    require(drawn.size() == boxes.size() && drawn.removeDuplicates() == 0, "each box is drawn once");
}

void documentAnswer(QByteArrayView bytes)
{
    if (const auto answer = reader::DocumentAnswer::decoded(bytes.toByteArray())) {
        // Text that is no UTF-8 is read with replacements, so the bytes may differ; what they say may not.
        const auto again = reader::DocumentAnswer::decoded(answer->encoded());
        require(again && again->pages == answer->pages, "an answer that is read can be sent on");
    }
    reader::FrameAssembler assembler(reader::maximumDocumentAnswerBytes);
    const qsizetype half = bytes.size() / 2;
    if (assembler.append(bytes.first(half)) && assembler.append(bytes.sliced(half))) {
        if (const auto frame = assembler.frame()) {
            require(reader::encoded(*frame) == bytes, "a frame that is read is written as it came");
        }
    }
}

void generatedRecipe(QByteArrayView bytes)
{
    const QByteArray json = bytes.toByteArray();
    if (const auto recipe = GeneratedRecipe::fromJson(json)) {
        const QList<TextLine> lines{{recipe->ingredients.value(0)}};
        if (const auto draft = recipe->checkedAgainst(lines)) {
            requireSoundLists(*draft);
            require(!draft->totalMinutes || *draft->totalMinutes > 0, "a time is above zero");
        }
    }
}

} // namespace ovrin::fuzz
