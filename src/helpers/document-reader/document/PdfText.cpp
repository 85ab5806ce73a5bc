#include "helpers/document-reader/document/PdfText.h"

#include "helpers/document-reader/document/DrawingOrder.h"
#include "helpers/document-reader/document/LineAssembly.h"
#include "helpers/document-reader/document/StepColumns.h"
#include "helpers/document-reader/document/TypeSize.h"
#include "helpers/document-reader/document/WordRows.h"

#include <poppler-qt6.h>

#include <QtCore/QBuffer>

#include <algorithm>
#include <memory>
#include <unordered_map>

namespace ovrin::documentreader {

namespace {

/// Far more than any page holds, and few enough to be put together in no time.
constexpr qsizetype maximumWordsPerPage = 20000;

std::vector<Word> wordsOf(const Poppler::Page& page)
{
    const auto boxes = page.textList();
    if (boxes.size() > maximumWordsPerPage) {
        return {};
    }
    std::unordered_map<const Poppler::TextBox*, qsizetype> indexes;
    for (const auto& box : boxes) {
        indexes.emplace(box.get(), static_cast<qsizetype>(indexes.size()));
    }
    std::vector<Word> words;
    words.reserve(boxes.size());
    for (const auto& box : boxes) {
        const auto next = indexes.find(box->nextWord());
        Word word{box->text(), box->boundingBox(), box->hasSpaceAfter(),
                  next == indexes.end() ? -1 : next->second};
        for (int i = 0; i < word.text.size(); ++i) {
            word.letters.push_back(box->charBoundingBox(i));
        }
        words.push_back(std::move(word));
    }
    return words;
}

/// A large first letter beside the lines that it begins: on the line of another than its own word.
bool isInitial(const Word& word, const std::vector<Word>& words)
{
    constexpr double leastRise = 1.5;
    return word.next >= 0 && word.text.size() == 1 && word.text.front().isUpper() &&
           word.box.height() > leastRise * words[word.next].box.height();
}

/// A change of type inside a word ("Soup" in small capitals) parts it in two, with a space that nobody sees.
bool hasSpaceAfter(const Word& word, const std::vector<Word>& words)
{
    constexpr double narrowestSpace = 0.11;
    if (!word.hasSpaceAfter || word.next < 0) {
        return false;
    }
    const QChar last = word.text.isEmpty() ? QChar() : word.text.back();
    const QChar first = words[word.next].text.isEmpty() ? QChar() : words[word.next].text.front();
    if (last.script() == QChar::Script_Han && first.script() == QChar::Script_Han) {
        return false;
    }
    const QRectF& next = words[word.next].box;
    return next.left() - word.box.right() > narrowestSpace * std::min(word.box.height(), next.height());
}

/// The words that follow `first` on its line. The height is that of the longest word: a sign from another
/// font (a fraction, a bullet) may be much taller than the line's type.
Run runFrom(qsizetype first, const std::vector<Word>& words)
{
    Run run;
    run.beginsStep = words[first].beginsStep;
    QRectF tallness;
    qsizetype longest = 0;
    QList<Run> letters;
    bool hasLoneLetter = false;
    for (qsizetype i = first; i >= 0 && run.text.size() < reader::maximumLineLength; i = words[i].next) {
        const Word& word = words[i];
        run.text += word.text;
        run.text += hasSpaceAfter(word, words) ? QStringLiteral(" ") : QString();
        run.box |= word.box;
        for (qsizetype k = 0; k < word.text.size(); ++k) {
            const QRectF& letter = word.letters[static_cast<std::size_t>(k)];
            letters.append(
                {word.text[k], {letter.left(), word.box.top(), letter.width(), word.box.height()}});
        }
        hasLoneLetter = hasLoneLetter || (word.text.size() == 1 && word.text.front().isLetter());
        if (word.text.size() > longest) {
            longest = word.text.size();
            tallness = word.box;
        }
        if (isInitial(word, words)) {
            break;
        }
    }
    run.box.setTop(tallness.top());
    run.box.setBottom(tallness.bottom());
    run.text =
        withoutLigatures((hasLoneLetter ? spacedText(letters) : std::nullopt).value_or(run.text)).trimmed();
    return run;
}

QList<Run> runsOf(const std::vector<Word>& words)
{
    std::vector<bool> follows(words.size(), false);
    for (const Word& word : words) {
        if (word.next >= 0 && !isInitial(word, words)) {
            follows[word.next] = true;
        }
    }
    QList<Run> runs;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (!follows[i]) {
            Run run = runFrom(static_cast<qsizetype>(i), words);
            if (!run.text.isEmpty()) {
                runs.append(run);
            }
        }
    }
    return runs;
}

/// Whether the page at `index` has a font whose glyphs are drawings.
bool hasDrawnGlyphs(const Poppler::Document& document, int index)
{
    const QList<Poppler::FontInfo> fonts = document.newFontIterator(index)->next();
    return std::any_of(fonts.begin(), fonts.end(),
                       [](const Poppler::FontInfo& font) { return font.type() == Poppler::FontInfo::Type3; });
}

/// Takes the free places between what lies in memory already, as far as words would fit there: Poppler 22.12
/// ends a page's text as it is drawn where a word lies higher in memory than the last one. Where that happens
/// all the same, the lines that are missing in it follow their neighbours.
class FilledGaps
{
public:
    FilledGaps()
    {
        constexpr std::size_t smallest = 96;
        constexpr std::size_t largest = 400;
        constexpr std::size_t step = 16;
        constexpr int placesASize = 2000;
        for (std::size_t size = smallest; size <= largest; size += step) {
            for (int i = 0; i < placesASize; ++i) {
                m_places.push_back(std::make_unique_for_overwrite<char[]>(size - sizeof(void*)));
            }
        }
    }

private:
    std::vector<std::unique_ptr<char[]>> m_places;
};

/// A page's whole text as it is drawn.
QString drawnText(const Poppler::Document& document, int index)
{
    const FilledGaps gaps;
    const std::unique_ptr<Poppler::Page> page = document.page(index);
    return page ? page->text(QRectF(), Poppler::Page::RawOrderLayout) : QString();
}

QList<reader::PageLine> linesOf(const Poppler::Document& document, int index, const QString& drawn)
{
    const std::unique_ptr<Poppler::Page> page = document.page(index);
    const QSizeF size = page ? page->pageSizeF() : QSizeF();
    if (size.isEmpty()) {
        return {};
    }
    std::vector<Word> words = withRowsApart(wordsOf(*page));
    if (hasDrawnGlyphs(document, index)) {
        words = withTrueHeights(std::move(words));
    }
    QList<reader::PageLine> lines;
    words = withStepColumnsApart(std::move(words));
    for (const Run& run : inDrawingOrder(assembledLines(runsOf(words)), drawn)) {
        lines.append({run.text.left(reader::maximumLineLength),
                      {run.box.left() / size.width(), run.box.top() / size.height(),
                       run.box.width() / size.width(), run.box.height() / size.height()}});
        if (lines.size() == reader::maximumLinesPerPage) {
            break;
        }
    }
    return lines;
}

} // namespace

std::optional<reader::DocumentAnswer> pdfText(const QByteArray& bytes)
{
    Poppler::setDebugErrorFunction([](const QString&, const QVariant&) {}, {});
    // By way of a device: handed bytes, Poppler makes a copy of them, and there may be 200 MB.
    QBuffer device;
    device.setData(bytes);
    device.open(QIODevice::ReadOnly);
    const std::unique_ptr<Poppler::Document> document = Poppler::Document::load(&device);
    if (!document || document->isLocked()) {
        return std::nullopt;
    }
    reader::DocumentAnswer answer;
    const int pages = std::min(document->numPages(), reader::maximumPages);
    // Before any page's words: after them Poppler leaves out what the same fonts draw (fonts that are
    // drawings).
    QStringList drawn;
    for (int i = 0; i < pages; ++i) {
        drawn.append(drawnText(*document, i));
    }
    for (int i = 0; i < pages; ++i) {
        // A page that cannot be fetched counts, so that the pages after it keep their place.
        answer.pages.append(linesOf(*document, i, drawn[i]));
    }
    return answer;
}

} // namespace ovrin::documentreader
