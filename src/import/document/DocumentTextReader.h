#pragma once

#include "import/document/TextLine.h"

namespace ovrin {

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

} // namespace DocumentTextReader

} // namespace ovrin
