#pragma once

#include "import/document/TextLine.h"

namespace ovrin {

/// Looks for columns where the reading order of a whole page cannot see them: below a title and between lines
/// that span the page, in one band of the page after the other.
namespace PageColumns {

/// The same lines, each page's in the order of its bands and their columns. Cells that make up the rows of a
/// table ("Flour", "200 g") become one line each. Pages whose lines have no places stay as they are.
QList<TextLine> regrouped(const QList<TextLine>& lines);

} // namespace PageColumns

} // namespace ovrin
