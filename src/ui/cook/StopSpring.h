#pragma once

#include "cooking/Spring.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace ovrin {

/// Brings the column of stops to where it should be. The view calls `advance` once a frame while `moving`.
class StopSpring : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(StopSpring)
    Q_PROPERTY(double value READ value NOTIFY valueChanged)
    Q_PROPERTY(bool moving READ isMoving NOTIFY movingChanged)

public:
    using QObject::QObject;

    double value() const { return m_spring.value(); }
    bool isMoving() const { return m_isMoving; }

    /// From where it is, at the speed it has.
    Q_INVOKABLE void aim(double target);
    /// `target` is where the same goal lies now: what is shown has grown or shrunk above it.
    Q_INVOKABLE void follow(double target);
    Q_INVOKABLE void jump(double value);
    Q_INVOKABLE void advance(double seconds);

Q_SIGNALS:
    void valueChanged();
    void movingChanged();

private:
    void update();

    static constexpr double response = 0.5;

    Spring m_spring{response};
    bool m_isMoving = false;
};

} // namespace ovrin
