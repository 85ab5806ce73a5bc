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

} // namespace ovrin
