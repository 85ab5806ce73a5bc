#pragma once

#include "import/document/PageMeasure.h"

#include <functional>
#include <optional>

namespace ovrin {

/// Lines that stand beside each other and belong together.
namespace PageRows {

/// Each page's lines as `ordered` puts them, with those marked that stand apart from the one before, besides
/// those that begin a block already. Pages of which a line has no place, or which have more lines than any
/// page of a book, stay as they are.
QList<TextLine> pageByPage(const QList<TextLine>& lines,
                           const std::function<QList<TextLine>(const QList<TextLine>&)>& ordered);

/// `lines`, sorted by their tops, with those of one row from left to right.
QList<TextLine> sorted(QList<TextLine> lines, const PageMeasure& measure);

/// In rows, those put together of which one is a mere amount and the other what it is an amount of.
QList<TextLine> withAmountsJoined(QList<TextLine> lines, const PageMeasure& measure);

/// The same for lines that are in order already.
QList<TextLine> joinedCells(const QList<TextLine>& lines, const PageMeasure& measure);

/// The lines of a grid of cells, three or more in a row, of which some take several lines: a cell after the
/// other, along the rows. Nothing when they are no such grid.
std::optional<QList<TextLine>> inCells(const QList<TextLine>& lines, const PageMeasure& measure);

/// Whether `left` and `right` are two columns of which one holds amounts, and nothing else, for the other's
/// words.
bool isTable(const QList<TextLine>& left, const QList<TextLine>& right, const PageMeasure& measure);

/// One block, as wide as its widest line.
QList<TextLine> asColumn(QList<TextLine> lines);

/// The rows of a table as one line each. Not one of them is the rest of another, so that each has room.
QList<TextLine> ofTable(QList<TextLine> lines, const PageMeasure& measure);

/// A column of nothing but labels and headings, each beside what it is for.
bool isLabels(const QList<TextLine>& lines);

} // namespace PageRows

} // namespace ovrin
