#pragma once

#include "reader/DocumentMessage.h"

#include <optional>

namespace ovrin::documentreader {

/// A run of words that the text layer itself keeps together. Lengths are in points.
struct Run
{
    QString text;
    QRectF box;
    /// It begins with a step's number that nothing to its left belongs to.
    bool beginsStep = false;
};

/// Puts together the runs that a person reads as one line: words that only a wide space parts, and a short
/// cell of its own in front of a text (a step's number, an amount, a bullet). Columns stay apart.
QList<Run> assembledLines(QList<Run> runs);

/// The words that letters set apart from each other make up ("S O U P"), with a space between any two; the
/// letters come from left to right and lie on one line. Nothing when they stand as close as letters do.
std::optional<QString> spacedText(const QList<Run>& letters);

/// Takes apart the ligatures U+FB00 to U+FB06 and changes nothing else.
QString withoutLigatures(const QString& text);

} // namespace ovrin::documentreader
