#pragma once

#include "import/document/TextLine.h"

#include <stop_token>

namespace QCoro {
template<typename T>
class Task;
}

namespace ovrin {

class PdfTextLayer;

/// Turns a document into its lines of text in the order in which a person reads them. It knows nothing about
/// recipes.
namespace DocumentTextReader {

/// A run of boxes that belong together, top to bottom.
struct Block
{
    static constexpr int spanning = -1;

    /// 0 for the left column, 1 for the right one, `spanning` for a box across the column split.
    int column = 0;
    QList<TextBox> boxes;
};

/// Groups one column's boxes, sorted by their top edge; a blank space of five typical heights or more parts
/// two blocks.
QList<Block> blocksByGap(QList<TextBox> boxes, int column, double typicalHeight);

/// The lines of one page. Two columns are told apart where at least three boxes stand on each side of a
/// vertical line in the page's middle half and few cross it.
QList<TextLine> readingOrder(const QList<TextBox>& boxes, int page = 0);

/// The lines of a document's first twelve pages, pages in order. `mimeType` is "application/pdf" or a type of
/// picture. A page with hardly any text counts as a picture, and has none as long as nothing recognises text.
/// Throws RecipeImportError when the document cannot be read or is too large, ImportCancelled after `stop`.
QCoro::Task<QList<TextLine>> read(PdfTextLayer& layer, QByteArray data, QString mimeType,
                                  std::stop_token stop);

} // namespace DocumentTextReader

} // namespace ovrin
