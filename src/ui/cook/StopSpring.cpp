#include "ui/cook/StopSpring.h"

namespace ovrin {

void StopSpring::aim(double target)
{
    m_spring.setTarget(target);
    update();
}

void StopSpring::follow(double target)
{
    m_spring.shift(target - m_spring.target());
    update();
}

void StopSpring::jump(double value)
{
    m_spring.jump(value);
    update();
}

void StopSpring::advance(double seconds)
{
    m_spring.advance(seconds);
    update();
}

void StopSpring::update()
{
    Q_EMIT valueChanged();
    if (std::exchange(m_isMoving, !m_spring.isAtRest()) != m_isMoving)
        Q_EMIT movingChanged();
}

} // namespace ovrin
