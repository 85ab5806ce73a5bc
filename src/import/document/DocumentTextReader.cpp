#include "import/document/DocumentTextReader.h"

#include "import/document/PdfTextLayer.h"
#include "import/error/RecipeImportError.h"

#include <numeric>

namespace ovrin {

namespace {

constexpr qsizetype largestDocument = 200LL * 1024 * 1024;
/// With fewer characters than this a page is a scan with a stamp on it.
constexpr qsizetype leastCharacters = 41;

bool hasText(const QList<TextBox>& boxes)
{
    const auto characters = std::accumulate(boxes.begin(), boxes.end(), qsizetype{0},
                                            [](auto sum, const auto& box) { return sum + box.text.size(); });
    return characters >= leastCharacters;
}

} // namespace

QCoro::Task<QList<TextLine>> DocumentTextReader::read(PdfTextLayer& layer, QByteArray data, QString mimeType,
                                                      std::stop_token stop)
{
    if (data.size() > largestDocument) {
        throw RecipeImportError::tooLarge();
    }
    if (mimeType != u"application/pdf") {
        co_return {};
    }
    const auto pages = co_await layer.pages(std::move(data), stop);
    if (stop.stop_requested()) {
        throw ImportCancelled();
    }
    if (!pages) {
        throw RecipeImportError::damagedFile();
    }
    QList<TextLine> lines;
    for (int page = 0; page < pages->size(); ++page) {
        if (hasText(pages->at(page))) {
            lines += readingOrder(pages->at(page), page);
        }
    }
    co_return lines;
}

} // namespace ovrin
