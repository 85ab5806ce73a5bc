#pragma once

#include <QtCore/QRectF>
#include <QtCore/QString>

#include <vector>

namespace ovrin::documentreader {

/// A word as the text layer has it. Lengths are in points.
struct Word
{
    QString text;
    QRectF box;
    bool hasSpaceAfter = false;
    /// Index of the word after this one on its line; -1 behind the last.
    qsizetype next = -1;
    /// Of each of its letters.
    std::vector<QRectF> letters = {};
    /// The number of a step, with nothing of its line in front of it.
    bool beginsStep = false;
};

/// Puts right the heights of words in fonts that do not say how large their type is: those whose glyphs are
/// drawings (Type 3), as browsers embed variable fonts. The width of their letters says it instead. Words
/// whose height fits their width stay as they are. Taken to be larger than it is, type makes one line of
/// columns beside each other: words too far apart for their height part.
std::vector<Word> withTrueHeights(std::vector<Word> words);

} // namespace ovrin::documentreader
