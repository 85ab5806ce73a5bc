#pragma once

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace ovrin {

/// What the user has told the desktop about how programs should look. This one is the null one: light,
/// moving, of plain size. A real one sets the values and follows the desktop.
class Appearance : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Appearance)
    QML_UNCREATABLE("handed to the window")
    Q_PROPERTY(bool dark READ isDark NOTIFY changed)
    Q_PROPERTY(bool reducedMotion READ isMotionReduced NOTIFY changed)
    Q_PROPERTY(double textScale READ textScale NOTIFY changed)

public:
    using QObject::QObject;

    bool isDark() const { return m_isDark; }
    bool isMotionReduced() const { return m_isMotionReduced; }
    /// 1 is the design's own size; from 0.8 to 2.
    double textScale() const { return m_textScale; }

    void setDark(bool dark);
    void setMotionReduced(bool reduced);
    void setTextScale(double scale);

Q_SIGNALS:
    void changed();

private:
    template<typename T>
    void assign(T& field, T value)
    {
        if (field == value)
            return;
        field = value;
        Q_EMIT changed();
    }

    bool m_isDark = false;
    bool m_isMotionReduced = false;
    double m_textScale = 1;
};

} // namespace ovrin
