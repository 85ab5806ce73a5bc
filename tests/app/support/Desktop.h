#pragma once

#include "platform/VirtualDisplay.h"
#include "support/dbus/PrivateBus.h"

#include <QtCore/QProcess>
#include <QtCore/QSize>
#include <QtCore/QTemporaryDir>

namespace ovrin::testing {

/// A desktop of the test's own: a display, a session bus with assistive technology, and folders in which the
/// user has nothing yet.
class Desktop
{
public:
    Desktop();
    ~Desktop();

    QString sessionBus() const { return m_bus.address(); }
    QString folder(const QString& name) const { return m_home.filePath(name); }
    /// Strikes keys as "ctrl+n", one after the other, for the window that has the keyboard.
    bool strike(const QStringList& keys) const;
    /// Gives the keyboard to the window whose title matches.
    bool goTo(const QString& title) const;
    bool resize(const QString& title, QSize size) const;
    /// What that window covers of the screen; nothing when it is not there.
    QSize sizeOf(const QString& title) const;
    bool type(const QString& text) const;
    /// What a program needs to run on it.
    QProcessEnvironment environment() const;

private:
    /// Whether `xdotool` did that, and what it answered.
    bool drive(const QStringList& arguments, QByteArray* answer = nullptr) const;

    QTemporaryDir m_home;
    test::VirtualDisplay m_display;
    PrivateBus m_bus;
    QProcess m_assistance;
};

} // namespace ovrin::testing
