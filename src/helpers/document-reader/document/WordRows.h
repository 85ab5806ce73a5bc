#pragma once

#include "helpers/document-reader/document/TypeSize.h"

namespace ovrin::documentreader {

/// Parts what the text layer took for one line because a tall sign (a step's large number) stands beside two,
/// or because the font's boxes reach into the next line: their words come mixed, from left to right. The sign
/// goes with the upper line.
std::vector<Word> withRowsApart(std::vector<Word> words);

} // namespace ovrin::documentreader
