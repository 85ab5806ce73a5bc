#pragma once

#include <QtCore/QObject>
#include <QtCore/QRect>
#include <QtCore/QTimer>

QT_BEGIN_NAMESPACE
class QSettings;
class QWindow;
QT_END_NAMESPACE

namespace ovrin {

/// Keeps a window's size and place in the settings, from one run to the next.
class WindowPlace : public QObject
{
    Q_OBJECT

public:
    /// Puts the window where it was, as far as that still lies on a screen.
    WindowPlace(QWindow& window, QSettings& settings, QString key);
    ~WindowPlace() override;

private:
    void restore();
    void note();
    void store();

    QWindow& m_window;
    QSettings& m_settings;
    QString m_key;
    QRect m_place;
    bool m_isMaximized = false;
    QTimer m_soon;
};

} // namespace ovrin
