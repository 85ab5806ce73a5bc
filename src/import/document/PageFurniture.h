#pragma once

#include "import/document/TextLine.h"

namespace ovrin {

/// What stands on a page and belongs to the application, the site or the paper, not to the recipe.
namespace PageFurniture {

/// A clock, a clock with a date, or a battery level: a phone's status bar captured in a screenshot.
bool isStatusBar(const QString& line);

/// Buttons, page numbers, addresses, ratings, menus, copyright: whatever its place on the page.
bool isFurniture(const QString& line);

/// The lines without furniture, empty lines, page numbers and heads that recur from page to page. A line
/// after a removed empty line starts a block.
QList<TextLine> removed(const QList<TextLine>& lines);

/// The names of the sites whose addresses stand on the pages, letters and digits only ("tastykitchen").
QStringList siteNames(const QList<TextLine>& lines);

} // namespace PageFurniture

} // namespace ovrin
