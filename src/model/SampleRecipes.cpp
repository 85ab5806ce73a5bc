#include "model/SampleRecipes.h"

#include "model/FlagStore.h"
#include "model/RecipeStore.h"

namespace ovrin::SampleRecipes {

namespace {

RecipeStep step(const QStringList& paragraphs)
{
    return {.title = {}, .paragraphs = paragraphs};
}

} // namespace

QString seededFlag()
{
    return QStringLiteral("didSeedSampleRecipes");
}

RecipeDraft lemonyGarlicSpaghetti()
{
    RecipeDraft draft;
    draft.title = QStringLiteral("Lemony Garlic Spaghetti");
    draft.author = QStringLiteral("Ovrin Kitchen");
    draft.summary =
        QStringLiteral("A bright, pantry-friendly pasta that comes together while the water boils. Tap a "
                       "time in the directions to start a timer.");
    draft.yield = QStringLiteral("4 servings");
    draft.prepMinutes = 10;
    draft.cookMinutes = 15;
    draft.totalMinutes = 25;
    draft.ingredients = {QStringLiteral("12 ounces spaghetti"),
                         QStringLiteral("3 tablespoons olive oil"),
                         QStringLiteral("4 cloves garlic, thinly sliced"),
                         QStringLiteral("1 lemon, zested and juiced"),
                         QStringLiteral("¼ teaspoon red pepper flakes"),
                         QStringLiteral("½ cup grated Parmesan"),
                         QStringLiteral("2 tablespoons chopped parsley"),
                         QStringLiteral("Kosher salt")};
    draft.steps = {
        step({QStringLiteral(
                  "Bring a large pot of salted water to a boil. Cook spaghetti until al dente, about 9 "
                  "minutes."),
              QStringLiteral("Reserve 1 cup of pasta water, then drain.")}),
        step({QStringLiteral(
            "Meanwhile, warm olive oil in a large skillet over medium-low heat. Add garlic and red "
            "pepper flakes and cook, stirring, until the garlic is pale golden, 2–3 minutes.")}),
        step({QStringLiteral(
                  "Add spaghetti, lemon zest, lemon juice, and ½ cup pasta water to the skillet. Toss over "
                  "medium heat until glossy, about 1 minute."),
              QStringLiteral(
                  "Off the heat, stir in Parmesan and parsley. Season with salt and loosen with more pasta "
                  "water if needed.")}),
    };
    return draft;
}

void seedIfNeeded(RecipeStore& store, FlagStore& flags)
{
    if (flags.flag(seededFlag()))
        return;
    flags.setFlag(seededFlag(), true);
    if (store.count() > 0)
        return;
    store.insert(std::make_shared<Recipe>(lemonyGarlicSpaghetti(), store.now()));
}

} // namespace ovrin::SampleRecipes
