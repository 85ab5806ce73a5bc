#pragma once

#include "material/Recipe.h"
#include "material/Sheet.h"

namespace ovrin::material {

/// A page set by a function of its own, where no choice among the layouts' habits would do.
struct SetPage
{
    QString name;
    SheetStyle style;
    /// `next` is another recipe of the same language, or nothing.
    void (*set)(Sheet& sheet, const Recipe& recipe, const Recipe* next);
};

} // namespace ovrin::material
