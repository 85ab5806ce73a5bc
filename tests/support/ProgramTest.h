#pragma once

#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

namespace ovrin {

/// Runs a real program whose data folder is the test's own, while the test's own servers go on answering.
class ProgramTest : public testing::Test
{
protected:
    struct Answer
    {
        /// -1 for a crash.
        int status;
        QString out;
        QString err;
        /// Standard output as it came, for what is no text.
        QByteArray bytes;
    };

    QProcessEnvironment environment() const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), home.path());
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.path());
        environment.insert(QStringLiteral("LC_ALL"), locale);
        environment.remove(QStringLiteral("DISPLAY"));
        return environment;
    }

    Answer start(const QString& program, const QStringList& arguments, const QByteArray& input = {})
    {
        QProcess process;
        process.setProcessEnvironment(environment());
        QEventLoop loop; // the local servers answer in it
        QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
        process.start(program, arguments);
        process.write(input);
        process.closeWriteChannel();
        loop.exec();
        const QByteArray bytes = process.readAllStandardOutput();
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(bytes), QString::fromUtf8(process.readAllStandardError()), bytes};
    }

    QString write(const QString& name, const QByteArray& bytes) const
    {
        const QString path = home.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path;
    }

    QTemporaryDir home;
    QString locale = QStringLiteral("C.UTF-8");
};

} // namespace ovrin
