#include "ui/desktop/Appearance.h"

namespace ovrin {

void Appearance::setDark(bool dark)
{
    assign(m_isDark, dark);
}

void Appearance::setMotionReduced(bool reduced)
{
    assign(m_isMotionReduced, reduced);
}

void Appearance::setTextScale(double scale)
{
    assign(m_textScale, qBound(0.8, scale, 2.0));
}

} // namespace ovrin
