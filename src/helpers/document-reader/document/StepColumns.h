#pragma once

#include "helpers/document-reader/document/TypeSize.h"

namespace ovrin::documentreader {

/// Parts a column of numbered steps from the text beside it, where the numbers hang into a gutter that is
/// hardly wider than a space: the lines to their left end in front of them, and the numbers begin lines.
std::vector<Word> withStepColumnsApart(std::vector<Word> words);

} // namespace ovrin::documentreader
