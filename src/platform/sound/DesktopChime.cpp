#include "platform/sound/DesktopChime.h"

#include "platform/sound/ChimeWave.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryFile>

#include <canberra.h>

namespace ovrin {

/// Lives on the pool's one thread until it is destroyed: connecting waits for the server.
class DesktopChime::Player
{
public:
    ~Player()
    {
        if (m_context)
            ca_context_destroy(m_context);
    }

    void play()
    {
        if (!m_context && !prepare())
            return;
        ca_context_cancel(m_context, soundId);
        ca_context_play(m_context, soundId, CA_PROP_MEDIA_FILENAME,
                        m_file.fileName().toLocal8Bit().constData(), CA_PROP_MEDIA_NAME, "Timer done",
                        CA_PROP_MEDIA_ROLE, "event", nullptr);
    }

private:
    static constexpr quint32 soundId = 1;

    /// The library plays files, so the sound becomes one for as long as the application runs.
    bool prepare()
    {
        const QByteArray wave = chimeWave();
        if (!m_file.open() || m_file.write(wave) != wave.size() || !m_file.flush())
            return false;
        if (ca_context_create(&m_context) != CA_SUCCESS) {
            m_context = nullptr;
            return false;
        }
        ca_context_change_props(m_context, CA_PROP_APPLICATION_NAME,
                                QCoreApplication::applicationName().toUtf8().constData(), nullptr);
        return true;
    }

    QTemporaryFile m_file;
    ca_context* m_context = nullptr;
};

DesktopChime::DesktopChime()
    : m_player(std::make_unique<Player>())
{
    m_thread.setMaxThreadCount(1);
}

DesktopChime::~DesktopChime()
{
    m_thread.clear();
    m_thread.waitForDone();
}

void DesktopChime::ring()
{
    m_thread.start([player = m_player.get()] { player->play(); });
}

} // namespace ovrin
