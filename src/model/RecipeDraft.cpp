#include "model/RecipeDraft.h"

namespace ovrin {

bool RecipeDraft::isComplete() const
{
    return !title.isEmpty() && !ingredients.isEmpty() && !steps.isEmpty();
}

RecipeDraft RecipeDraft::merged(const RecipeDraft& base) const
{
    RecipeDraft result = *this;
    for (const auto text : {&RecipeDraft::title, &RecipeDraft::author, &RecipeDraft::publisher,
                            &RecipeDraft::summary, &RecipeDraft::yield}) {
        if ((result.*text).isEmpty())
            result.*text = base.*text;
    }
    for (const auto minutes :
         {&RecipeDraft::prepMinutes, &RecipeDraft::cookMinutes, &RecipeDraft::totalMinutes}) {
        if (!(result.*minutes))
            result.*minutes = base.*minutes;
    }
    // A few lines fewer are no loss; fewer than half are.
    if (ingredients.size() < base.ingredients.size() / 2)
        result.ingredients = base.ingredients;
    if (steps.isEmpty())
        result.steps = base.steps;
    return result;
}

} // namespace ovrin
