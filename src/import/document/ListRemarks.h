#pragma once

#include "import/document/IngredientSearch.h"

namespace ovrin {

/// The lines of a list of ingredients without the sentences in front of it and behind it: an introduction, a
/// remark, an advertisement. All of them where no entry has an amount,
/// or where entries are sentences themselves.
LineRange withoutRemarks(const QList<TextLine>& list);

} // namespace ovrin
