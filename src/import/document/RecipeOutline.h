#pragma once

#include "import/document/TextLine.h"

namespace ovrin {

/// A page's lines dealt out to the parts of one recipe.
struct RecipeOutline
{
    /// Title, summary, times: what stands before and beside the other two.
    QList<TextLine> head;
    QList<TextLine> ingredients;
    QList<TextLine> directions;
    /// Another recipe follows on these pages; nothing of it is in the lists.
    bool hasMoreRecipes = false;
};

/// Deals out lines that are free of furniture: by headings where there are any, otherwise by what the lines
/// look like. Of several recipes the first one that has ingredients and directions is taken.
RecipeOutline outline(const QList<TextLine>& lines);

enum class HeadingKind { None, Ingredients, Directions, Other };

struct Heading
{
    HeadingKind kind = HeadingKind::None;
    /// What stands on the heading's line besides it: "(serves 4)", or the first words of the section.
    QString rest;
};

Heading headingOf(const QString& line);

/// Whether the line stands out as a title does, in larger type than the text around it.
bool isLargeType(const TextLine& line);

} // namespace ovrin
