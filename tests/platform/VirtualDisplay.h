#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <csignal>
#include <sys/prctl.h>

namespace ovrin::test {

/// An X server of the test's own, on whatever display number is free, as long as this lives.
class VirtualDisplay
{
public:
    VirtualDisplay()
    {
        m_server.setProgram(QStringLiteral("Xvfb"));
        m_server.setArguments({QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                               QStringLiteral("0"), QStringLiteral("1024x768x24"),
                               QStringLiteral("-nolisten"), QStringLiteral("tcp"),
                               // When its last client goes it would begin anew, and turn away who comes then.
                               QStringLiteral("-noreset")});
        m_server.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_server.start();
        while (!m_server.canReadLine() && m_server.waitForReadyRead(30'000)) {
        }
        m_name = ":" + m_server.readLine().trimmed();
    }
    ~VirtualDisplay()
    {
        m_server.kill();
        m_server.waitForFinished();
    }

    /// As DISPLAY has it; only ":" when there is no server.
    const QByteArray& name() const { return m_name; }

private:
    QProcess m_server;
    QByteArray m_name;
};

} // namespace ovrin::test
