#pragma once

#include "platform/desktop/PortalAppearance.h"

#include <QtCore/QSettings>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <memory>

namespace ovrin {

class LibraryWindow;
class WindowPlace;

/// The library's window without the library: it stands, in its place and colours, before that has been read,
/// and is filled when it has. Main thread only.
class WindowFrame
{
public:
    /// `engine` outlives this.
    explicit WindowFrame(QQmlEngine& engine);
    ~WindowFrame();
    WindowFrame(const WindowFrame&) = delete;
    WindowFrame& operator=(const WindowFrame&) = delete;

    /// Shows it, if it does not stand already. False when it cannot be made, which only a broken installation
    /// brings about.
    bool open();
    /// What it shows from now on. `model` outlives the window.
    void fill(LibraryWindow& model);
    void destroy();

    /// Null until it has been opened.
    QQuickWindow* window() const { return m_window.get(); }
    QQmlEngine& engine() { return m_engine; }
    QSettings& settings() { return m_settings; }

private:
    QQmlEngine& m_engine;
    QSettings m_settings;
    PortalAppearance m_appearance;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<WindowPlace> m_place;
};

} // namespace ovrin
