#include "platform/reader/ReaderPhotoMaker.h"
#include "reader/PhotoMessage.h"

#include <QCoro/QCoroTask>

#include <QtCore/QBuffer>
#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QImage>
#include <gtest/gtest.h>

#include <csignal>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ovrin {
namespace {

using namespace std::chrono_literals;

QByteArray picture(const char* format, QSize size = {2000, 1000})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(200, 100, 50));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

QByteArray answer(const QByteArray& jpeg, reader::MessageKind kind = reader::MessageKind::Photo)
{
    return reader::encoded({kind, reader::PhotoAnswer{jpeg, QStringLiteral("C86432")}.encoded()});
}

class ReaderPhotoMaker : public testing::Test
{
protected:
    /// A program that takes the reader's place: writes its process id to `pid`, then does what `script` says;
    /// the file `answer` lies beside it.
    QString impostor(const QByteArray& script, const QByteArray& answer = {})
    {
        write(QStringLiteral("answer"), answer);
        const auto path =
            write(QStringLiteral("impostor"), "#!/bin/sh\ncd '" + m_folder.path().toUtf8() +
                                                  "'\necho $$ >started\nmv started pid\n" + script + "\n");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
        return path;
    }

    pid_t impostorsPid() const
    {
        QFile file(m_folder.filePath(QStringLiteral("pid")));
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : 0;
    }

    /// Whether the impostor has started and is no more.
    bool isGone() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return impostorsPid() > 0 && kill(impostorsPid(), 0) != 0 && errno == ESRCH;
    }

    /// Calls `act` as soon as the impostor runs.
    void onceStarted(const std::function<void()>& act)
    {
        QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this, act] {
            if (impostorsPid() > 0) {
                m_poll.stop();
                act();
            }
        });
        m_poll.start(5);
    }

    static std::optional<Photo> made(const QString& program, const QByteArray& bytes,
                                     std::chrono::milliseconds time = 60s)
    {
        ovrin::ReaderPhotoMaker maker(program, time);
        return QCoro::waitFor(maker.photo(bytes, {}));
    }

private:
    QString write(const QString& name, const QByteArray& bytes)
    {
        QFile file(m_folder.filePath(name));
        file.remove();
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    QTemporaryDir m_folder;
    QTimer m_poll;
};

TEST_F(ReaderPhotoMaker, MakesPhotosInTheRealReader)
{
    for (const auto* format : {"jpeg", "png", "bmp"}) {
        const auto photo = made(QStringLiteral(OVRIN_BIN "/document-reader"), picture(format));
        ASSERT_TRUE(photo) << format;
        EXPECT_EQ(QImage::fromData(photo->jpeg, "jpeg").size(), QSize(1600, 800)) << format;
        EXPECT_EQ(photo->averageColorHex.left(1), u"C") << format;
    }
    EXPECT_FALSE(made(QStringLiteral(OVRIN_BIN "/document-reader"), "<html>no picture</html>"));
}

TEST_F(ReaderPhotoMaker, AsksNobodyAboutNothingOrTooMuch)
{
    const auto program = impostor("cat answer", answer(picture("jpeg", {10, 10})));
    EXPECT_FALSE(made(program, {}));
    EXPECT_FALSE(made(program, QByteArray(qsizetype{reader::maximumPhotoBytes} + 1, 'x')));
    EXPECT_EQ(impostorsPid(), 0);
}

TEST_F(ReaderPhotoMaker, TakesNothingFromAReaderThatFails)
{
    const auto small = picture("jpeg", {10, 10});
    struct Case
    {
        const char* what;
        QByteArray script;
        QByteArray answer;
    };
    for (const auto& [what, script, answerBytes] : {
             Case{"ends without a word", "exit 0", {}},
             Case{"crashes", "kill -SEGV $$", {}},
             Case{"crashes in the middle of its answer", "head -c 40 answer; kill -SEGV $$", answer(small)},
             Case{"never stops talking", "cat /dev/zero", {}},
             Case{"announces four gigabytes", "cat answer; exec sleep 60",
                  QByteArray("OVRD\1\0\1\0\xff\xff\xff\xff", 12)},
             Case{"says no", "cat answer; exec sleep 60", reader::encoded({})},
             Case{"answers another question", "cat answer",
                  answer(small, static_cast<reader::MessageKind>(9))},
             Case{"answers nonsense", "cat answer",
                  reader::encoded({reader::MessageKind::Photo, "nonsense"})},
             Case{"calls a page a photo", "cat answer", answer("<html></html>")},
             Case{"calls a PNG a photo", "cat answer", answer(picture("png", {10, 10}))},
             Case{"cuts its photo short", "cat answer", answer(small.chopped(3))},
             Case{"makes a photo that is too large", "cat answer", answer(picture("jpeg", {1601, 10}))},
         }) {
        const auto program = impostor(script, answerBytes);
        EXPECT_FALSE(made(program, picture("png", {300, 300}))) << what;
        EXPECT_TRUE(isGone()) << what;
    }
    EXPECT_FALSE(made(QStringLiteral("/nonexistent/document-reader"), small));
    EXPECT_TRUE(made(impostor("cat answer", answer(small)), small)) << "the impostor can be believed";
}

TEST_F(ReaderPhotoMaker, EndsAReaderThatHangs)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(made(impostor("exec sleep 60"), picture("png"), 300ms));
    EXPECT_LT(timer.elapsed(), 30'000);
    EXPECT_TRUE(isGone() || impostorsPid() == 0);
}

TEST_F(ReaderPhotoMaker, EndsTheReaderWhenItIsStopped)
{
    ovrin::ReaderPhotoMaker maker(impostor("exec sleep 60"), 60s);
    std::stop_source source;
    onceStarted([&] { source.request_stop(); });
    EXPECT_FALSE(QCoro::waitFor(maker.photo(picture("png"), source.get_token())));
    EXPECT_TRUE(isGone());

    EXPECT_FALSE(QCoro::waitFor(maker.photo(picture("png"), source.get_token())))
        << "stopped before it began";
}

TEST_F(ReaderPhotoMaker, EndsTheReaderWithItself)
{
    auto maker = std::make_unique<ovrin::ReaderPhotoMaker>(impostor("exec sleep 60"), 60s);
    onceStarted([&] { maker.reset(); });
    EXPECT_FALSE(QCoro::waitFor(maker->photo(picture("png"), {})));
    EXPECT_TRUE(isGone());
}

/// Whether a process has put on its system call filter, the last layer of its cage.
bool isCaged(pid_t pid)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    return status.open(QIODevice::ReadOnly) && status.readAll().contains("Seccomp:\t2");
}

TEST(DocumentReaderProgram, DiesWithTheApplication)
{
    // Orphans come to this process, so that their end can be waited for.
    ASSERT_EQ(prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
    std::array<int, 2> input{};
    std::array<int, 2> told{};
    ASSERT_EQ(pipe(input.data()) | pipe(told.data()), 0);
    const auto application = fork();
    if (application == 0) {
        const auto reader = fork();
        if (reader == 0) {
            dup2(input[0], STDIN_FILENO);
            execl(OVRIN_BIN "/document-reader", "document-reader", nullptr);
            _exit(127);
        }
        const auto sent = write(told[1], &reader, sizeof reader);
        pause();
        _exit(static_cast<int>(sent));
    }
    pid_t reader = 0;
    ASSERT_EQ(read(told[0], &reader, sizeof reader), static_cast<ssize_t>(sizeof reader));
    QElapsedTimer timer;
    timer.start();
    while (!isCaged(reader) && timer.elapsed() < 20'000) {
        usleep(1000);
    }
    const bool caged = isCaged(reader);
    kill(application, SIGKILL);
    waitpid(application, nullptr, 0);
    // Its input is still open: nothing but the application's death can end it, before its own alarm does.
    int status = 0;
    EXPECT_EQ(waitpid(reader, &status, 0), reader);
    if (!caged) {
        GTEST_SKIP() << "This system has no seccomp to wait for.";
    }
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGKILL);
}

} // namespace
} // namespace ovrin
