#include "import/error/RecipeImportError.h"
#include "import/web/AddressGuard.h"
#include "import/web/PageDownloader.h"
#include "support/LocalServer.h"
#include "support/Outcome.h"

#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkCookie>
#include <QtNetwork/QNetworkCookieJar>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslKey>
#include <QtNetwork/QSslServer>

#include <gtest/gtest.h>

namespace ovrin {
namespace {

using Transport = TransportError::Case;
using namespace std::chrono_literals;

class PageDownloaderTest : public testing::Test
{
protected:
    /// Only 127.0.0.2 counts as private, so that loopback can play both the internet and the home.
    static bool isHome(const QHostAddress& address)
    {
        return address == QHostAddress(QStringLiteral("127.0.0.2"));
    }

    PageDownloader downloader() { return {network, limits, isHome}; }

    Outcome<PageDownloader::Page> page(const QUrl& url)
    {
        PageDownloader downloader = this->downloader();
        return finished(downloader.page(url, {}));
    }
    Outcome<QByteArray> photo(const QUrl& url, const QUrl& source)
    {
        PageDownloader downloader = this->downloader();
        return finished(downloader.photo(url, source, {}));
    }

    template<typename T>
    static std::optional<Transport> transport(const Outcome<T>& outcome)
    {
        const auto failure = outcome.template failure<TransportError>();
        return failure ? std::optional(failure->reason()) : std::nullopt;
    }
    template<typename T>
    static QString sentence(const Outcome<T>& outcome)
    {
        return outcome.error ? importErrorDescription(outcome.error).value_or(QStringLiteral("cancelled"))
                             : QString();
    }

    /// Answers with a body that trickles on until the other side leaves.
    void trickle(const QByteArray& path, const QByteArray& piece)
    {
        site.on(path, [piece](const LocalServer::Request&, QTcpSocket& socket) {
            socket.write("HTTP/1.1 200 OK\r\n\r\n" + piece);
            auto* const timer = new QTimer(&socket);
            QObject::connect(timer, &QTimer::timeout, &socket, [&socket, piece] { socket.write(piece); });
            timer->start(1);
        });
    }

    PageDownloader::Limits limits;
    QNetworkAccessManager network;
    LocalServer site;
    LocalServer home{QHostAddress(QStringLiteral("127.0.0.2"))};
};

TEST_F(PageDownloaderTest, AsksLikeABrowserWithoutCookies)
{
    site.serve("/a", "<title>A</title>", "200 OK", "Set-Cookie: track=me; Path=/\r\n");
    for (int i = 0; i < 2; ++i) {
        const auto outcome = page(site.url("/a"));
        ASSERT_TRUE(outcome.value);
        EXPECT_EQ(outcome.value->html, "<title>A</title>");
        EXPECT_EQ(outcome.value->url, site.url("/a"));
    }
    ASSERT_EQ(site.requests().size(), 2);
    const auto headers = site.requests().last().headers;
    EXPECT_EQ(headers["user-agent"],
              "Mozilla/5.0 (Macintosh; Intel Mac OS X 10_15_7) AppleWebKit/605.1.15 (KHTML, "
              "like Gecko) Version/18.0 Safari/605.1.15");
    EXPECT_EQ(headers["accept"], "text/html,application/xhtml+xml");
    EXPECT_TRUE(headers["accept-encoding"].contains("gzip"));
    EXPECT_FALSE(headers.contains("cookie"));
    EXPECT_TRUE(network.cookieJar()->cookiesForUrl(site.url("/a")).isEmpty());
}

TEST_F(PageDownloaderTest, TellsTheStatus)
{
    for (const QByteArray status :
         {"404 Not Found", "403 Forbidden", "500 Oops", "301 No Location", "304 Not Modified"}) {
        site.serve("/a", status.startsWith("304") ? "" : "<title>Not this</title>", status);
        const auto failure = page(site.url("/a")).failure<RecipeImportError>();
        ASSERT_TRUE(failure) << status.toStdString();
        EXPECT_EQ(*failure, RecipeImportError::badResponse(status.left(3).toInt()));
    }
    site.serve("/a", "<title>A</title>", "203 Fine");
    EXPECT_TRUE(page(site.url("/a")).value);
}

TEST_F(PageDownloaderTest, FollowsTenRedirects)
{
    for (int i = 0; i < 11; ++i) {
        site.redirect("/" + QByteArray::number(i), QByteArray::number(i + 1),
                      i % 2 ? "308 Permanent Redirect" : "301 Moved");
    }
    site.serve("/11", "end");
    const auto outcome = page(site.url("/1"));
    ASSERT_TRUE(outcome.value) << sentence(outcome).toStdString();
    EXPECT_EQ(outcome.value->url, site.url("/11"));
    EXPECT_EQ(transport(page(site.url("/0"))), Transport::TooManyRedirects);

    site.redirect("/loop", "/loop");
    EXPECT_EQ(transport(page(site.url("/loop"))), Transport::TooManyRedirects);
    site.redirect("/file", "file:///etc/hostname");
    EXPECT_EQ(transport(page(site.url("/file"))), Transport::RedirectRefused);
}

TEST_F(PageDownloaderTest, KeepsThePublicInternetOutOfTheHome)
{
    home.serve("/router", "secret");
    site.redirect("/in", home.url("/router").toEncoded());
    EXPECT_EQ(transport(page(site.url("/in"))), Transport::PrivateAddress);
    EXPECT_EQ(transport(photo(home.url("/router"), site.url("/page"))), Transport::PrivateAddress);
    EXPECT_EQ(transport(photo(site.url("/in"), site.url("/page"))), Transport::PrivateAddress);
    home.redirect("/out", site.url("/in").toEncoded());
    EXPECT_EQ(transport(page(home.url("/out"))), Transport::PrivateAddress);
    EXPECT_EQ(home.requests().size(), 1) << "only the page that the user named";

    home.redirect("/named", "/router");
    EXPECT_TRUE(page(home.url("/named")).value);
    EXPECT_EQ(photo(home.url("/router"), home.url("/named")).value, "secret");
}

TEST_F(PageDownloaderTest, KeepsCredentialsOnTheirHost)
{
    const auto guarded = [](const LocalServer::Request& request, QTcpSocket& socket) {
        if (request.headers.contains("authorization")) {
            socket.write("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nin");
        } else {
            socket.write(
                "HTTP/1.1 401 Who?\r\nWWW-Authenticate: Basic realm=\"x\"\r\nContent-Length: 0\r\n\r\n");
        }
    };
    site.on("/a", guarded);
    home.on("/a", guarded);
    QUrl url = site.url("/a");
    EXPECT_EQ(page(url).failure<RecipeImportError>(), RecipeImportError::badResponse(401));
    url.setUserInfo(QStringLiteral("me:secret"));
    const auto outcome = page(url);
    ASSERT_TRUE(outcome.value) << sentence(outcome).toStdString();
    EXPECT_EQ(outcome.value->html, "in");

    home.redirect("/leave", site.url("/photo").toEncoded());
    site.serve("/photo", "photo");
    QUrl named = home.url("/leave");
    named.setUserInfo(QStringLiteral("me:secret"));
    EXPECT_TRUE(page(named).value);
    EXPECT_EQ(photo(site.url("/photo"), named).value, "photo");
    EXPECT_FALSE(site.requests().last().headers.contains("authorization"));
    EXPECT_EQ(site.requests().last().headers["referer"], home.url("/leave").toEncoded());
}

TEST_F(PageDownloaderTest, GivesUpInTime)
{
    limits.silence = 50ms;
    site.on("/silent", [](const LocalServer::Request&, QTcpSocket&) {});
    EXPECT_EQ(transport(page(site.url("/silent"))), Transport::TimedOut);
    site.on("/stalls", [](const LocalServer::Request&, QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
    });
    EXPECT_EQ(sentence(page(site.url("/stalls"))), QStringLiteral("The site took too long to answer."));

    limits.silence = 1h;
    limits.whole = 100ms;
    trickle("/trickle", "x");
    EXPECT_EQ(transport(page(site.url("/trickle"))), Transport::TimedOut);
    EXPECT_TRUE(runUntil([this] { return site.openConnections() == 0; }));
}

TEST_F(PageDownloaderTest, StopsReadingAtTheLimit)
{
    limits.pageBytes = 100'000;
    limits.photoBytes = 10;
    site.serve("/full", QByteArray(100'000, 'x'));
    site.serve("/more", QByteArray(100'001, 'x'));
    trickle("/endless", QByteArray(5'000, 'x'));
    const auto full = page(site.url("/full"));
    ASSERT_TRUE(full.value) << sentence(full).toStdString();
    EXPECT_EQ(full.value->html.size(), 100'000);
    EXPECT_EQ(page(site.url("/more")).failure<RecipeImportError>(), RecipeImportError::tooLarge());
    EXPECT_EQ(page(site.url("/endless")).failure<RecipeImportError>(), RecipeImportError::tooLarge());
    EXPECT_EQ(photo(site.url("/full"), site.url("/")).failure<RecipeImportError>(),
              RecipeImportError::tooLarge());
    EXPECT_TRUE(runUntil([this] { return site.openConnections() <= 1; }));
}

TEST_F(PageDownloaderTest, ReadsCompressedAnswersWithinTheLimit)
{
    site.serve(
        "/gzip",
        QByteArray::fromHex("1f8b0800000000000203b329c92cc949b58bca2c28484db1d187f00097023cdb15000000"),
        "200 OK", "Content-Encoding: gzip\r\n");
    const auto zlib = [](const QByteArray& text) { return qCompress(text, 9).mid(4); };
    site.serve("/deflate", zlib("<title>Zipped</title>"), "200 OK", "Content-Encoding: deflate\r\n");
    site.serve("/bomb", zlib(QByteArray(100'000'000, ' ')), "200 OK", "Content-Encoding: deflate\r\n");
    site.serve("/broken", "this is no gzip", "200 OK", "Content-Encoding: gzip\r\n");
    for (const char* path : {"/gzip", "/deflate"}) {
        const auto outcome = page(site.url(path));
        ASSERT_TRUE(outcome.value) << sentence(outcome).toStdString();
        EXPECT_EQ(outcome.value->html, "<title>Zipped</title>");
    }
    EXPECT_EQ(page(site.url("/bomb")).failure<RecipeImportError>(), RecipeImportError::tooLarge());
    EXPECT_EQ(transport(page(site.url("/broken"))), Transport::NoAnswer);
}

TEST_F(PageDownloaderTest, TellsWhyThereIsNoConnection)
{
    site.on("/hangup", [](const LocalServer::Request&, QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
        socket.disconnectFromHost();
    });
    site.on("/garbage", [](const LocalServer::Request&, QTcpSocket& socket) {
        socket.write("\x01\x02\x03 garbage\r\n\r\n");
        socket.disconnectFromHost();
    });
    EXPECT_EQ(transport(page(site.url("/hangup"))), Transport::ConnectionLost);
    EXPECT_TRUE(transport(page(site.url("/garbage"))));

    LocalServer closed;
    const QUrl gone = closed.url("/");
    closed.close();
    EXPECT_EQ(transport(page(gone)), Transport::Refused);
    for (const char* address :
         {"file:///etc/hostname", "ftp://x.example/", "mailto:me", "data:text/html,x", "", "http://"}) {
        EXPECT_EQ(transport(page(QUrl(QString::fromLatin1(address)))), Transport::UnsupportedAddress)
            << address;
    }
    EXPECT_EQ(transport(photo(QUrl(QStringLiteral("file:///etc/hostname")), site.url("/"))),
              Transport::UnsupportedAddress);
    EXPECT_EQ(photo(QUrl(QStringLiteral("data:image/png;base64,QUJD")), site.url("/")).value, "ABC");
}

TEST_F(PageDownloaderTest, TrustsNoCertificateThatTheSiteMadeItself)
{
    // Key and certificate of nobody, for "localhost".
    QFile pem(QStringLiteral("tests/import/fixtures/self-signed.pem"));
    ASSERT_TRUE(pem.open(QIODevice::ReadOnly));
    const QByteArray both = pem.readAll();
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setPrivateKey(QSslKey(both, QSsl::Ec));
    configuration.setLocalCertificate(QSslCertificate(both));
    QSslServer server;
    server.setSslConfiguration(configuration);
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const QUrl url(QStringLiteral("https://127.0.0.1:%1/").arg(server.serverPort()));
    EXPECT_EQ(sentence(page(url)),
              QStringLiteral("The site could not prove that it is what it claims to be."));
}

TEST_F(PageDownloaderTest, CanBeCalledOffAtAnyMoment)
{
    site.redirect("/moved", "/slow");
    trickle("/slow", "x");
    PageDownloader downloader = this->downloader();
    // After none, one, two, ... turns of the event loop: looking up, connecting, waiting, redirected,
    // reading.
    for (int turns = 0; turns < 40; ++turns) {
        std::stop_source source;
        const auto outcome = outcomeOf(downloader.page(site.url("/moved"), source.get_token()));
        for (int i = 0; i < turns; ++i) {
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
        EXPECT_FALSE(outcome->done);
        source.request_stop();
        ASSERT_TRUE(runUntil([&] { return outcome->done; }));
        EXPECT_TRUE(outcome->failure<ImportCancelled>()) << turns;
    }
    std::stop_source stopped;
    stopped.request_stop();
    const qsizetype before = site.requests().size();
    EXPECT_TRUE(
        finished(downloader.page(site.url("/moved"), stopped.get_token())).failure<ImportCancelled>());
    EXPECT_EQ(site.requests().size(), before);
    network.clearConnectionCache();
    EXPECT_TRUE(runUntil([this] { return site.openConnections() == 0; }));
}

} // namespace
} // namespace ovrin
