#include "cooking/Spring.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ovrin {

bool Spring::isAtRest() const
{
    return std::abs(m_distance) < 0.1 && std::abs(m_speed) < 1;
}

void Spring::setTarget(double target)
{
    m_distance += m_target - target;
    m_target = target;
}

void Spring::jump(double value)
{
    m_target = value;
    m_distance = m_speed = 0;
}

void Spring::advance(double seconds)
{
    const double t = std::max(0.0, seconds);
    const double w = 2 * std::numbers::pi / m_response;
    const double slope = m_speed + w * m_distance;
    const double decay = std::exp(-w * t);
    const double distance = (m_distance + slope * t) * decay;
    m_speed = (m_speed - w * slope * t) * decay;
    m_distance = distance;
    if (isAtRest())
        jump(m_target);
}

} // namespace ovrin
