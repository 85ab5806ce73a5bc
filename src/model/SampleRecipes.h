#pragma once

#include "model/RecipeDraft.h"

namespace ovrin {

class FlagStore;
class RecipeStore;

namespace SampleRecipes {

/// "didSeedSampleRecipes": set before the first try, so that there is only one per user, whatever comes of
/// it.
QString seededFlag();

RecipeDraft lemonyGarlicSpaghetti();

/// Puts the sample recipe into a library that is empty, once per user.
void seedIfNeeded(RecipeStore& store, FlagStore& flags);

} // namespace SampleRecipes
} // namespace ovrin
