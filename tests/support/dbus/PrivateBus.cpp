#include "support/dbus/PrivateBus.h"

#include <QtCore/QFile>

#include <gtest/gtest.h>

namespace ovrin::testing {

namespace {

const char* const configuration =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
  <limit name="max_replies_per_connection">50000</limit>
</busconfig>
)";

} // namespace

PrivateBus::PrivateBus()
{
    QFile file(m_folder.filePath(QStringLiteral("bus.conf")));
    if (file.open(QIODevice::WriteOnly))
        file.write(QString::fromLatin1(configuration).arg(address()).toUtf8());
    file.close();
    start();
}

PrivateBus::~PrivateBus()
{
    stop();
}

QString PrivateBus::address() const
{
    return QStringLiteral("unix:path=%1").arg(m_folder.filePath(QStringLiteral("bus")));
}

void PrivateBus::start()
{
    m_daemon.setProgram(QStringLiteral("dbus-daemon"));
    m_daemon.setArguments(
        {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
         QStringLiteral("--config-file=%1").arg(m_folder.filePath(QStringLiteral("bus.conf")))});
    m_daemon.start();
    // It prints its address once it listens.
    ASSERT_TRUE(m_daemon.waitForReadyRead(10'000)) << m_daemon.readAllStandardError().constData();
}

void PrivateBus::stop()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

} // namespace ovrin::testing
