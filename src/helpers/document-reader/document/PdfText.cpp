#include "helpers/document-reader/document/PdfText.h"

#include "helpers/document-reader/document/LineAssembly.h"

#include <poppler-qt6.h>

#include <QtCore/QBuffer>
#include <QtCore/QSet>

#include <algorithm>
#include <memory>

namespace ovrin::documentreader {

namespace {

/// Far more than any page holds, and few enough to be put together in no time.
constexpr qsizetype maximumWordsPerPage = 20000;

using Words = std::vector<std::unique_ptr<Poppler::TextBox>>;

/// A large first letter beside the lines that it begins: on the line of another than its own word.
bool isInitial(const Poppler::TextBox& word)
{
    constexpr double leastRise = 1.5;
    const Poppler::TextBox* const next = word.nextWord();
    return next != nullptr && word.text().size() == 1 && word.text().front().isUpper() &&
           word.boundingBox().height() > leastRise * next->boundingBox().height();
}

/// The words that follow `first` on its line. The height is that of the longest word: a sign from another
/// font (a fraction, a bullet) may be much taller than the line's type.
Run runFrom(const Poppler::TextBox* first)
{
    Run run;
    QRectF tallness;
    qsizetype longest = 0;
    QList<Run> pieces;
    for (const auto* word = first; word != nullptr && run.text.size() < reader::maximumLineLength;
         word = word->nextWord()) {
        const QRectF box = word->boundingBox();
        run.text += word->text();
        run.text += word->hasSpaceAfter() && word->nextWord() != nullptr ? QStringLiteral(" ") : QString();
        run.box |= box;
        pieces.append({word->text(), box});
        if (word->text().size() > longest) {
            longest = word->text().size();
            tallness = box;
        }
        if (isInitial(*word)) {
            break;
        }
    }
    run.box.setTop(tallness.top());
    run.box.setBottom(tallness.bottom());
    run.text = withoutLigatures(spacedText(pieces).value_or(run.text)).trimmed();
    return run;
}

QList<Run> runsOf(const Words& words)
{
    QSet<const Poppler::TextBox*> followers;
    for (const auto& word : words) {
        if (!isInitial(*word)) {
            followers.insert(word->nextWord());
        }
    }
    QList<Run> runs;
    for (const auto& word : words) {
        if (!followers.contains(word.get())) {
            Run run = runFrom(word.get());
            if (!run.text.isEmpty()) {
                runs.append(run);
            }
        }
    }
    return runs;
}

QList<reader::PageLine> linesOf(const Poppler::Page& page)
{
    Words words = page.textList();
    const QSizeF size = page.pageSizeF();
    if (size.isEmpty() || words.size() > maximumWordsPerPage) {
        return {};
    }
    QList<reader::PageLine> lines;
    for (const Run& run : assembledLines(runsOf(words))) {
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
    for (int i = 0; i < pages; ++i) {
        const std::unique_ptr<Poppler::Page> page = document->page(i);
        // A page that cannot be fetched counts, so that the pages after it keep their place.
        answer.pages.append(page ? linesOf(*page) : QList<reader::PageLine>());
    }
    return answer;
}

} // namespace ovrin::documentreader
