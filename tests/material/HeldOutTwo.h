#pragma once

#include "material/Recipe.h"
#include "material/Sheet.h"

namespace ovrin::material {

/// A page set by a function of its own, where no choice among the layouts' habits would do.
struct HeldOutPage
{
    QString name;
    SheetStyle style;
    /// `next` is another recipe of the same language, or nothing.
    void (*set)(Sheet& sheet, const Recipe& recipe, const Recipe* next);
};

/// The second set that is not to be looked at while the rules are written.
const QList<HeldOutPage>& heldOutTwo();

} // namespace ovrin::material
