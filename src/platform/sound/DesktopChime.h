#pragma once

#include <QtCore/QThreadPool>

#include <memory>

namespace ovrin {

/// The soft sound of a timer that has run out, through the desktop's sound server, at the volume that the
/// user gives event sounds. Without a server, or with event sounds turned off, nothing is heard and nothing
/// fails.
class DesktopChime final
{
public:
    DesktopChime();
    /// Cuts off what is still sounding.
    ~DesktopChime();

    /// Returns at once: a server may be slow to answer. One sound at a time, however often it is asked for.
    void ring();

private:
    class Player;

    std::unique_ptr<Player> m_player;
    QThreadPool m_thread;
};

} // namespace ovrin
