#pragma once

#include "import/document/TextLine.h"

namespace ovrin {

/// The order in which a page was drawn, which mostly is the one in which it was written: columns, cards and
/// cells come one after the other, however they stand. What lies above the rest of the page may be drawn
/// last, though, and some programs draw a page in no order at all.
namespace DrawnOrder {

/// The same lines, each page's as they are drawn, but no line before what stands above it; amounts beside
/// what they are amounts of become one line with it. Pages whose lines have no places stay as they are.
QList<TextLine> regrouped(const QList<TextLine>& lines);

/// Whether all lines know when they were drawn.
bool isKnown(const QList<TextLine>& lines);

} // namespace DrawnOrder

} // namespace ovrin
