#pragma once

#include "model/RecipeTint.h"

#include <QtGui/QColor>

namespace ovrin {

inline QColor toQColor(const TintColor& color)
{
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue));
}

} // namespace ovrin
