#include "platform/notifications/NotifierLink.h"

#include "helpers/notifier/Protocol.h"

#include <algorithm>

namespace ovrin {

NotifierLink::NotifierLink(QString program, QString folder, QObject* parent)
    : QObject(parent)
    , m_program(std::move(program))
    , m_folder(std::move(folder))
{
    m_pause.setSingleShot(true);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    connect(&m_pause, &QTimer::timeout, this, &NotifierLink::open);
    connect(&m_process, &QProcess::finished, this, &NotifierLink::onStarted);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            onFailure();
    });
    connect(&m_socket, &QLocalSocket::connected, this, &NotifierLink::opened);
    connect(&m_socket, &QLocalSocket::readyRead, this, &NotifierLink::onReadyRead);
    connect(&m_socket, &QLocalSocket::disconnected, this, &NotifierLink::lost);
    connect(&m_socket, &QLocalSocket::errorOccurred, this, [this](QLocalSocket::LocalSocketError error) {
        // A link that was open and is closed says so by `disconnected`.
        if (error != QLocalSocket::PeerClosedError)
            onFailure();
    });
}

NotifierLink::~NotifierLink()
{
    // The program is done within milliseconds; what it leaves in the background must not be stopped half-way.
    m_process.disconnect(this);
    m_socket.disconnect(this);
    m_process.waitForFinished(1000);
}

void NotifierLink::open()
{
    m_isWanted = true;
    if (m_socket.state() == QLocalSocket::UnconnectedState && !m_pause.isActive())
        startNotifier();
}

void NotifierLink::startNotifier()
{
    if (m_process.state() == QProcess::NotRunning)
        m_process.start(m_program, {m_folder});
}

void NotifierLink::onStarted(int exitCode, QProcess::ExitStatus status)
{
    if (!std::exchange(m_isWanted, false))
        return;
    if (exitCode != 0 || status != QProcess::NormalExit)
        return onFailure();
    m_socket.connectToServer(
        m_folder + u'/' +
        QString::fromLatin1(notifier::socketName.data(), qsizetype(notifier::socketName.size())));
}

void NotifierLink::send(const QByteArray& lines)
{
    m_socket.write(lines);
}

void NotifierLink::onReadyRead()
{
    m_failures = 0;
    while (m_socket.canReadLine())
        Q_EMIT received(m_socket.readLine().chopped(1));
}

void NotifierLink::onFailure()
{
    constexpr int shortestPause = 50;
    constexpr int longestPause = 30'000;
    m_pause.start(std::min(longestPause, shortestPause << std::min(m_failures++, 10)));
}

bool NotifierLink::waitForChange(int milliseconds)
{
    constexpr int manyFailures = 5;
    if (m_process.state() != QProcess::NotRunning) {
        m_process.waitForFinished(milliseconds);
    } else if (m_socket.state() == QLocalSocket::ConnectedState) {
        m_socket.waitForReadyRead(milliseconds);
    } else {
        m_pause.stop();
        open();
    }
    return m_failures < manyFailures;
}

} // namespace ovrin
