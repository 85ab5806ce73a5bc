#pragma once

#include "import/document/LanguageModel.h"
#include "import/document/TextLine.h"
#include "model/RecipeDraft.h"

namespace ovrin {

/// Asks the on-device language model for the recipe in a text, where the rules have found none.
namespace RecipeStructurer {

/// Nothing when there is no model, it fails, or what it answers is not borne out by `lines`. Never throws.
QCoro::Task<std::optional<RecipeDraft>> structure(LanguageModel& model, QList<TextLine> lines,
                                                  std::stop_token stop);

/// What the model is asked: its standing instructions, and the prompt for `lines`.
QString instructions();
QString prompt(const QList<TextLine>& lines);

} // namespace RecipeStructurer

} // namespace ovrin
