#pragma once

#include "import/document/RecipeOutline.h"
#include "model/RecipeDraft.h"

namespace ovrin {

/// Reads title, author, publisher, yield, times and summary from the lines around a recipe's lists.
/// `siteNames` are the names of sites whose addresses stand on the pages: a line that says no more than one
/// of them is the publisher, however large its type.
void readHead(const RecipeOutline& parts, const QStringList& siteNames, RecipeDraft& draft);

} // namespace ovrin
