#pragma once

#include "import/document/TextLine.h"
#include "model/RecipeStep.h"

#include <optional>

#include <QtCore/QStringList>

namespace ovrin {

/// Joins the wrapped lines of a recipe's two lists into their entries.
namespace RecipeItems {

/// One string an ingredient, without its bullet; the heading of a group of ingredients ends in a colon.
QStringList ingredients(const QList<TextLine>& lines);

/// The entries of a list that is set as a text with semicolons between them ("2 eggs; 1 l milk"); nothing
/// when it is not. Groups as above.
std::optional<QStringList> runIn(const QList<TextLine>& lines);

/// Numbered, bulleted or bare paragraphs as steps. A heading among them becomes the next step's title.
QList<RecipeStep> steps(const QList<TextLine>& lines);

/// `next` behind `text`: with a space, or without where a hyphen at the line's end only divides a word.
QString joined(const QString& text, const QString& next);

/// All lines as one text.
QString joined(const QList<TextLine>& lines);

/// Whether the first word of `next` would have had room on the line before, of a column so wide that
/// `fullWidth` fits: then that line was ended on purpose.
bool hadRoomFor(const QString& next, const QString& previous, double fullWidth);

/// Width of the widest line, by LineShape::estimatedWidth.
double fullWidth(const QList<TextLine>& lines);

} // namespace RecipeItems

} // namespace ovrin
