#include "platform/webkit/WebPageLoader.h"

#include "helpers/page-renderer/Outcome.h"
#include "import/error/RecipeImportError.h"
#include "platform/PageServer.h"
#include "platform/RenderFamily.h"
#include "platform/VirtualDisplay.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QTest>

#include <optional>

namespace ovrin {
namespace {

using namespace std::chrono_literals;
using test::PageServer;
using test::RenderFamily;
using test::VirtualDisplay;

/// Long enough for a busy machine; only pages that are complete sooner are given it.
constexpr auto ample = 60s;

class WebPageLoaderTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_display = new VirtualDisplay;
        s_family = new RenderFamily;
    }
    static void TearDownTestSuite()
    {
        delete s_family;
        delete s_display;
    }
    void SetUp() override { qputenv("DISPLAY", s_display->name()); }
    void TearDown() override
    {
        EXPECT_THAT(s_family->living(), testing::IsEmpty());
        EXPECT_THAT(s_family->leftovers(), testing::IsEmpty());
    }

    QString html(const QUrl& url, std::chrono::milliseconds timeout = ample, std::stop_token stop = {})
    {
        return wait(loader.html(url, timeout, stop));
    }
    /// QCoro::waitFor() never returns from a task that throws.
    static QString wait(QCoro::Task<QString> task)
    {
        QString result;
        std::exception_ptr error;
        const auto settle = [&]() -> QCoro::Task<> {
            try {
                result = co_await task;
            } catch (...) {
                error = std::current_exception();
            }
        };
        QCoro::waitFor(settle());
        if (error)
            std::rethrow_exception(error);
        return result;
    }
    std::optional<TransportError::Case> failure(const QUrl& url, std::chrono::milliseconds timeout = ample)
    {
        try {
            ADD_FAILURE() << "rendered: " << html(url, timeout).toStdString();
        } catch (const TransportError& error) {
            return error.reason();
        }
        return std::nullopt;
    }

    static inline VirtualDisplay* s_display = nullptr;
    static inline RenderFamily* s_family = nullptr;
    PageServer server;
    WebPageLoader loader{QStringLiteral(OVRIN_PAGE_RENDERER)};
};

constexpr auto structuredData = R"(<script type="application/ld+json">{"name":"Soup \u00e9"}</script>)";

TEST_F(WebPageLoaderTest, ReturnsTheDocumentOnceItHoldsJsonLd)
{
    const QByteArray inserted =
        "<!doctype html><title>Crème</title><p id=size></p><script>setTimeout(() => {"
        "document.querySelector('#size').textContent = innerWidth + 'x' + innerHeight;"
        "const s = document.createElement('script'); s.type = 'application/ld+json';"
        "s.textContent = '{\"name\":\"Late\"}'; document.head.append(s) }, 2000)</script>";
    server.page("/static", QByteArray("<!doctype html><title>A</title>") + structuredData);
    server.page("/inserted", inserted, "200 OK", "Content-Type: text/html; charset=utf-8\r\n");
    // A 404 is a page like any other.
    server.page("/missing", structuredData, "404 Not Found");
    server.page("/moved", "", "302 Found", "Location: /static\r\n");
    // What the page does to its own objects does not hide the data.
    server.page("/hostile",
                QByteArray("<script>document.querySelector = () => null; Array.prototype.toJSON = 1;"
                           "</script>") +
                    structuredData);

    EXPECT_THAT(html(server.url("/static")).toStdString(), testing::HasSubstr("Soup"));
    const std::string late = html(server.url("/inserted")).toStdString();
    EXPECT_THAT(late, testing::HasSubstr("{\"name\":\"Late\"}"));
    EXPECT_THAT(late, testing::HasSubstr("Crème"));
    EXPECT_THAT(late, testing::HasSubstr("1024x768"));
    for (const char* path : {"/missing", "/moved", "/hostile"})
        EXPECT_THAT(html(server.url(path)).toStdString(), testing::HasSubstr("Soup")) << path;
}

TEST_F(WebPageLoaderTest, ReturnsWhatThereIsWhenTheTimeIsUp)
{
    server.page("/plain", "<!doctype html><title>Only a title</title>");
    QElapsedTimer timer;
    timer.start();
    EXPECT_THAT(html(server.url("/plain"), 6s).toStdString(), testing::HasSubstr("Only a title"));
    EXPECT_GE(timer.elapsed(), 6000);
}

TEST_F(WebPageLoaderTest, TimesOutOnAPageThatNeverEndsLoading)
{
    server.page("/waiting", "<!doctype html><title>A</title><script src=/never></script>");
    server.page("/busy", "<!doctype html><title>A</title><script>for (;;);</script>");
    EXPECT_EQ(failure(server.url("/never"), 2s), TransportError::Case::TimedOut);
    EXPECT_EQ(failure(server.url("/waiting"), 2s), TransportError::Case::TimedOut);
    EXPECT_EQ(failure(server.url("/busy"), 2s), TransportError::Case::TimedOut);
}

TEST_F(WebPageLoaderTest, FailsAtOnceWhereThereIsNoPage)
{
    server.page("/loop", "", "302 Found", "Location: /loop\r\n");
    server.page("/archive", "PK", "200 OK", "Content-Type: application/zip\r\n");
    server.page("/giant", "<script>const s = document.createElement('script'); s.type = 'text/plain';"
                          "s.textContent = 'x'.repeat(40e6); document.documentElement.append(s)</script>");
    const int closedPort = [] {
        QTcpServer closed;
        closed.listen(QHostAddress::LocalHost);
        return closed.serverPort();
    }();
    for (const char* path : {"/loop", "/archive", "/giant"})
        EXPECT_EQ(failure(server.url(path)), TransportError::Case::NoAnswer) << path;
    EXPECT_EQ(failure(QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(closedPort))),
              TransportError::Case::NoAnswer);
    EXPECT_EQ(failure(QUrl(QStringLiteral("file:///etc/passwd"))), TransportError::Case::UnsupportedAddress);
    EXPECT_EQ(failure(QUrl(QStringLiteral("ovrin://import"))), TransportError::Case::UnsupportedAddress);
}

TEST_F(WebPageLoaderTest, FailsAtOnceWithoutDisplayOrProgram)
{
    server.page("/static", structuredData);
    WebPageLoader absent(QStringLiteral("/nonexistent/page-renderer"));
    EXPECT_THROW(wait(absent.html(server.url("/static"), ample, {})), TransportError);
    qputenv("DISPLAY", ":none");
    EXPECT_EQ(failure(server.url("/static")), TransportError::Case::NoAnswer);
    qunsetenv("DISPLAY");
    EXPECT_EQ(failure(server.url("/static")), TransportError::Case::NoAnswer);
    EXPECT_THAT(server.requested(), testing::IsEmpty());
}

TEST_F(WebPageLoaderTest, RefusesWhateverAPageAsksFor)
{
    server.page("/", R"html(<!doctype html><title>Everything</title>
        <iframe id=file src="file:///etc/passwd"></iframe><a id=save href=/save download>x</a>
        <iframe id=scheme src="ovrin://import?url=x"></iframe>
        <script>
        const saw = {};
        const settled = promise => Promise.race([promise.then(() => 'granted', () => 'refused'),
                                                 new Promise(end => setTimeout(end, 1500, 'pending'))]);
        const attempt = action => { try { return action() } catch (error) { return Promise.reject(error) } };
        onbeforeunload = event => { event.preventDefault(); return 'stay' };
        onload = async () => {
            alert('a');
            saw.confirm = confirm('b');
            saw.prompt = prompt('c');
            print();
            saw.window = window.open('/popup') === null;
            document.querySelector('#save').click();
            saw.sound = await settled(attempt(() => new Audio('/sound').play()));
            saw.camera = await settled(attempt(() => navigator.mediaDevices.getUserMedia({video: true})));
            saw.place = await settled(attempt(() => new Promise((yes, no) =>
                navigator.geolocation.getCurrentPosition(yes, no))));
            saw.notify = await attempt(() => Notification.requestPermission()).catch(() => 'denied');
            saw.file = attempt(() => document.querySelector('#file').contentDocument?.body?.innerText ?? '');
            location = 'ovrin://import?url=x';
            location = 'file:///etc/passwd';
            const result = document.createElement('script');
            result.type = 'application/ld+json';
            result.textContent = JSON.stringify(saw);
            setTimeout(() => document.head.append(result), 200);
        };
        </script>)html");
    server.page("/save", "file", "200 OK", "Content-Disposition: attachment\r\n");
    server.page("/sound", "", "404 Not Found");
    const QString text = html(server.url("/"));
    const qsizetype start = text.indexOf(QLatin1String(R"(<script type="application/ld+json">)")) + 35;
    const QByteArray json = text.mid(start, text.indexOf(QLatin1String("</script>"), start) - start).toUtf8();
    const QJsonObject saw = QJsonDocument::fromJson(json).object();
    EXPECT_EQ(saw[QLatin1String("confirm")], QJsonValue(false)) << json.toStdString();
    EXPECT_TRUE(saw[QLatin1String("prompt")].isNull());
    EXPECT_EQ(saw[QLatin1String("window")], QJsonValue(true));
    for (const char* asked : {"sound", "camera", "place"})
        EXPECT_THAT(saw[QLatin1String(asked)].toString().toStdString(), testing::AnyOf("refused", "pending"))
            << asked;
    EXPECT_EQ(saw[QLatin1String("notify")].toString().toStdString(), "denied");
    EXPECT_EQ(saw[QLatin1String("file")].toString().toStdString(), "");
    EXPECT_FALSE(server.requested().contains("/popup"));
}

TEST_F(WebPageLoaderTest, EndsItsFamilyWhenStopped)
{
    server.page("/waiting", "<!doctype html><script src=/never></script>");
    std::stop_source stop;
    server.onRequest = [&](const QByteArray& path) {
        if (path != "/never")
            return;
        EXPECT_THAT(s_family->living(), testing::SizeIs(testing::Ge(4)));
        stop.request_stop();
    };
    EXPECT_THROW(html(server.url("/waiting"), ample, stop.get_token()), ImportCancelled);
    EXPECT_THAT(s_family->living(), testing::IsEmpty());
    EXPECT_THROW(html(server.url("/waiting"), ample, stop.get_token()), ImportCancelled);
}

/// Only what a kill lets happen: no destructor, no signal handler.
TEST_F(WebPageLoaderTest, EndsItsFamilyWhenItsParentIsKilled)
{
    server.page("/waiting", "<!doctype html><script src=/never></script>");
    QProcess parent;
    bool reached = false;
    server.onRequest = [&](const QByteArray& path) { reached = reached || path == "/never"; };
    parent.start(QStringLiteral(OVRIN_RENDERING_PARENT),
                 {QStringLiteral(OVRIN_PAGE_RENDERER), server.url("/waiting").toString()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return reached; }, 60'000));
    EXPECT_THAT(s_family->living(), testing::SizeIs(testing::Ge(5)));
    parent.kill();
    EXPECT_TRUE(QTest::qWaitFor([&] { return s_family->living().isEmpty(); }, 20'000))
        << s_family->living().join(QLatin1Char(' ')).toStdString();
    EXPECT_TRUE(QTest::qWaitFor([&] { return s_family->leftovers().isEmpty(); }, 20'000));
}

/// The supervisor itself may fall to the system's out-of-memory killer; its folder then stays behind.
TEST_F(WebPageLoaderTest, LeavesNobodyWhenTheSupervisorIsKilled)
{
    server.page("/waiting", "<!doctype html><script src=/never></script>");
    QProcess supervisor;
    bool reached = false;
    server.onRequest = [&](const QByteArray& path) { reached = reached || path == "/never"; };
    supervisor.start(
        QStringLiteral(OVRIN_PAGE_RENDERER),
        {QStringLiteral("--timeout"), QStringLiteral("60000"), server.url("/waiting").toString()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return reached; }, 60'000));
    // A second thread could take the signal that the page is done.
    const QDir threads(QStringLiteral("/proc/%1/task").arg(supervisor.processId()));
    EXPECT_THAT(threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot), testing::SizeIs(1));
    supervisor.kill();
    EXPECT_TRUE(QTest::qWaitFor([&] { return s_family->living().isEmpty(); }, 20'000))
        << s_family->living().join(QLatin1Char(' ')).toStdString();
    for (const QString& folder : s_family->leftovers())
        QDir(QString::fromLocal8Bit(qgetenv("TMPDIR")) + QLatin1Char('/') + folder).removeRecursively();
}

TEST_F(WebPageLoaderTest, ReachesNothingPrivateWhenOnlyThePublicInternetIsAllowed)
{
    server.page("/static", structuredData);
    QProcess helper;
    helper.start(QStringLiteral(OVRIN_PAGE_RENDERER),
                 {QStringLiteral("--public-only"), QStringLiteral("--timeout"), QStringLiteral("60000"),
                  server.url("/static").toString()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return helper.state() == QProcess::NotRunning; }, 60'000));
    EXPECT_EQ(helper.exitCode(), static_cast<int>(RenderOutcome::Failed));
    EXPECT_THAT(server.requested(), testing::IsEmpty());
}

} // namespace
} // namespace ovrin
