#pragma once

#include "import/document/TextLine.h"

namespace ovrin {

enum class HeadingKind { None, Ingredients, Directions, Other };

struct Heading
{
    HeadingKind kind = HeadingKind::None;
    /// What stands on the heading's line besides it: "(serves 4)", or the first words of the section.
    QString rest;
};

Heading headingOf(const QString& line);

/// A heading's kind and the lines below it.
struct Section
{
    HeadingKind kind = HeadingKind::None;
    QList<TextLine> lines;
};

/// The lines by their headings, in order; the first section is what stands above all headings. A section that
/// stands beside another one goes on in its own column on the next page.
QList<Section> sectionsOf(const QList<TextLine>& lines);

} // namespace ovrin
