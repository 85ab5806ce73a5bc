#include "app/support/Desktop.h"

#include <QtCore/QDir>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusConnectionInterface>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace ovrin::testing {

namespace {

/// The beginning of a command about the window whose title matches.
QStringList found(const QString& title)
{
    return {QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"), title};
}

} // namespace

Desktop::Desktop()
{
    QDir(m_home.path()).mkpath(QStringLiteral("run"));
    QFile::setPermissions(folder(QStringLiteral("run")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_assistance.setProgram(QStringLiteral(OVRIN_AT_SPI_LAUNCHER));
    m_assistance.setArguments({QStringLiteral("--launch-immediately")});
    m_assistance.setProcessEnvironment(environment());
    m_assistance.setProcessChannelMode(QProcess::MergedChannels);
    m_assistance.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_assistance.start();
    const QString name = QStringLiteral("desktop");
    const QDBusConnection session = QDBusConnection::connectToBus(sessionBus(), name);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return session.interface()->isServiceRegistered(QStringLiteral("org.a11y.Bus")).value(); },
        20'000))
        << m_assistance.readAll().constData();
    QDBusConnection::disconnectFromBus(name);
}

Desktop::~Desktop()
{
    // It takes its own bus along.
    m_assistance.terminate();
    m_assistance.waitForFinished();
}

bool Desktop::drive(const QStringList& arguments, QByteArray* answer) const
{
    QProcess xdotool;
    xdotool.setProcessEnvironment(environment());
    xdotool.start(QStringLiteral("xdotool"), arguments);
    const bool isDone = xdotool.waitForFinished() && xdotool.exitCode() == 0;
    if (answer)
        *answer = xdotool.readAllStandardOutput();
    return isDone;
}

bool Desktop::strike(const QStringList& keys) const
{
    return drive(QStringList{QStringLiteral("key")} + keys);
}

bool Desktop::goTo(const QString& title) const
{
    return drive(found(title) + QStringList{QStringLiteral("windowfocus"), QStringLiteral("--sync")});
}

bool Desktop::resize(const QString& title, QSize size) const
{
    return drive(found(title) + QStringList{QStringLiteral("windowsize"), QString::number(size.width()),
                                            QString::number(size.height())});
}

QSize Desktop::sizeOf(const QString& title) const
{
    QByteArray answer;
    drive(found(title) + QStringList{QStringLiteral("getwindowgeometry"), QStringLiteral("--shell")},
          &answer);
    const auto number = [&answer](const QByteArray& name) {
        return answer.mid(answer.indexOf(name) + name.size()).split('\n').first().toInt();
    };
    return answer.isEmpty() ? QSize() : QSize(number("WIDTH="), number("HEIGHT="));
}

bool Desktop::type(const QString& text) const
{
    return drive({QStringLiteral("type"), text});
}

QProcessEnvironment Desktop::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(m_display.name()));
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), sessionBus());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    environment.insert(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("HOME"), m_home.path());
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder(QStringLiteral("run")));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), folder(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), folder(QStringLiteral("cache")));
    return environment;
}

} // namespace ovrin::testing
