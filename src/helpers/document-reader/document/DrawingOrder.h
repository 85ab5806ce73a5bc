#pragma once

#include "helpers/document-reader/document/LineAssembly.h"

namespace ovrin::documentreader {

/// `lines` in the order in which the page draws them, which mostly is the order in which they were written.
/// `drawn` is the page's whole text in that order. A line that is not found in it follows the one before.
QList<Run> inDrawingOrder(const QList<Run>& lines, const QString& drawn);

} // namespace ovrin::documentreader
