#pragma once

#include "import/document/TextLine.h"

#include <vector>

namespace ovrin {

/// The lines whose numbers count up from 1 in front of directions, in order; empty where no method is
/// numbered. Bare numbers that are amounts ("2 Eggs") are told from them by what follows each.
std::vector<qsizetype> stepNumbers(const QList<TextLine>& lines);

/// The lines whose numbers count up from 1, in order, amounts among them: where only directions are left. One
/// number may be missing between two of them.
std::vector<qsizetype> countedLines(const QList<TextLine>& lines);

} // namespace ovrin
