#pragma once

#include <QtCore/QByteArrayView>

/// The text analysis on any bytes, read as UTF-8: each function compares with the patterns and ends the
/// program when the two differ.
namespace ovrin::fuzz {

void markup(QByteArrayView bytes);
void durations(QByteArrayView bytes);
/// Each line is an ingredient line.
void ingredientLines(QByteArrayView bytes);
/// Ingredient lines, an empty line, direction paragraphs.
void directions(QByteArrayView bytes);

} // namespace ovrin::fuzz
