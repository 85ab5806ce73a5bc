#pragma once

namespace ovrin {

/// A critically damped spring: it comes to its target as fast as one can without passing it. `response` is
/// the period, in seconds, of the same spring without damping. Solved exactly, so that any frame rate gives
/// one motion. Source: x(t) = (x0 + (v0 + w x0) t) e^(-w t) for x'' + 2 w x' + w^2 x = 0, with w = 2 pi /
/// response.
class Spring
{
public:
    explicit Spring(double response)
        : m_response(response)
    {
    }

    double value() const { return m_target + m_distance; }
    double target() const { return m_target; }
    /// Whether it has come to rest, to a tenth of a unit.
    bool isAtRest() const;

    /// Keeps value and speed.
    void setTarget(double target);
    /// Moves value and target alike: the ground shifts, the motion does not.
    void shift(double distance) { m_target += distance; }
    /// Is at `value`, at rest.
    void jump(double value);
    void advance(double seconds);

private:
    double m_response;
    double m_target = 0;
    /// From the target.
    double m_distance = 0;
    /// A second.
    double m_speed = 0;
};

} // namespace ovrin
