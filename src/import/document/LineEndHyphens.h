#pragma once

#include "import/document/TextLine.h"

namespace ovrin {

/// Hyphens at line ends either divide a word that the line had no room for, or are the word's own
/// ("tomato-vegetable juice"). The document tells them apart: by the words that stand elsewhere in it, and by
/// how many of its lines end in one.
namespace LineEndHyphens {

/// Whether a word ends in a hyphen at the end of `text`.
bool isAtEndOf(const QString& text);

/// `lines`, in reading order, with a soft hyphen (U+00AD) for each that divides a word and a non-breaking one
/// (U+2011) for each that belongs to it. Where nothing tells, the hyphen stays.
QList<TextLine> told(QList<TextLine> lines);

} // namespace LineEndHyphens

} // namespace ovrin
