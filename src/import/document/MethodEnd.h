#pragma once

#include "import/document/TextLine.h"

namespace ovrin {

/// Where, among the lines of a method, it has ended and something else follows that no heading tells: a
/// remark, an introduction read last, small print. `lines.size()` where nothing does.
qsizetype methodEnd(const QList<TextLine>& lines);

} // namespace ovrin
