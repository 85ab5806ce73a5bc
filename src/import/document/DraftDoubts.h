#pragma once

#include "import/document/RecipeOutline.h"
#include "model/RecipeDraft.h"

namespace ovrin {

/// How much speaks against a draft being what its page says: entries that are none, a text that jumps, lines
/// that are left over. 0 where nothing does. Only good for comparing two readings of one document; the
/// weights were fitted on printed pages whose recipes are known.
double doubtsAbout(const RecipeDraft& draft, const RecipeOutline& parts, const QList<TextLine>& lines);

} // namespace ovrin
