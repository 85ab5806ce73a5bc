#include "platform/languagemodel/LoopbackLanguageModel.h"

#include "support/LocalServer.h"
#include "support/Outcome.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

using namespace ovrin;
using namespace std::chrono_literals;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QByteArray completion(const QByteArray& content)
{
    const QJsonObject message{{text("content"), QString::fromUtf8(content)}};
    const QJsonObject choice{{text("message"), message}};
    return QJsonDocument(QJsonObject{{text("choices"), QJsonArray{choice}}}).toJson();
}

bool endsWithNothing(LanguageModel& model)
{
    const auto outcome = finished(model.respond({}, {}, {}, {}));
    return outcome.value && !*outcome.value;
}

class LanguageModelServer : public testing::Test
{
protected:
    LanguageModelServer() { server.serve("/v1/models", R"({"data": [{"id": "small"}, {"id": "big"}]})"); }

    std::optional<QByteArray> respond(std::stop_token stop = {})
    {
        LoopbackLanguageModel model(server.url({}).toString(), {2s, 2s});
        const auto outcome = finished(
            model.respond(text("Instructions."), text("Prompt."), {{text("type"), text("object")}}, stop));
        EXPECT_TRUE(outcome.value) << "never throws, always ends";
        return outcome.value.value_or(std::nullopt);
    }

    LocalServer server;
};

} // namespace

TEST_F(LanguageModelServer, AsksTheFirstModelForJsonThatFitsTheSchema)
{
    server.serve("/v1/chat/completions", completion("{\"title\": \"Tea\"}"));
    EXPECT_EQ(respond(), QByteArray("{\"title\": \"Tea\"}"));
    const QJsonObject asked = QJsonDocument::fromJson(server.requests().last().body).object();
    EXPECT_EQ(asked[text("model")], text("small"));
    const QJsonArray messages = asked[text("messages")].toArray();
    EXPECT_EQ(messages.first()[text("content")], text("Instructions."));
    EXPECT_EQ(messages.last()[text("content")], text("Prompt."));
    EXPECT_EQ(messages.last()[text("role")], text("user"));
    const QJsonValue format = asked[text("response_format")];
    EXPECT_EQ(format[text("type")], text("json_schema"));
    EXPECT_EQ(format[text("json_schema")][text("schema")][text("type")], text("object"));
}

TEST_F(LanguageModelServer, TakesNothingFromAnswersThatAreNone)
{
    const char* path = "/v1/chat/completions";
    for (const QByteArray& body : {QByteArray("{\"choices\""), QByteArray("[]"), QByteArray(),
                                   QByteArray(R"({"choices": [{"message": {"content": 7}}]})")}) {
        server.serve(path, body);
        EXPECT_FALSE(respond()) << body.toStdString();
    }
    server.serve(path, completion("{}"), "500 Internal Server Error");
    EXPECT_FALSE(respond());
    server.on(path, [](const LocalServer::Request&, QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 5000\r\n\r\n{\"choices\": [");
        socket.disconnectFromHost();
    });
    EXPECT_FALSE(respond()) << "half an answer";
    server.on(path, [](const LocalServer::Request&, QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 100000000\r\n\r\n" + QByteArray(6 << 20, ' '));
    });
    EXPECT_FALSE(respond()) << "more than any recipe takes";
}

TEST_F(LanguageModelServer, GivesASlowServerUp)
{
    server.on("/v1/chat/completions", [](const LocalServer::Request&, QTcpSocket&) {});
    LoopbackLanguageModel model(server.url({}).toString(), {2s, 50ms});
    EXPECT_TRUE(endsWithNothing(model));
}

TEST_F(LanguageModelServer, IsCalledOffInTheMiddle)
{
    std::stop_source stop;
    server.on("/v1/chat/completions", [&](const LocalServer::Request&, QTcpSocket&) { stop.request_stop(); });
    EXPECT_FALSE(respond(stop.get_token()));
}

TEST_F(LanguageModelServer, FollowsNoRedirect)
{
    LocalServer elsewhere;
    elsewhere.serve("/v1/chat/completions", completion("{}"));
    server.redirect("/v1/chat/completions", elsewhere.url("/v1/chat/completions").toString().toUtf8(),
                    "307 Temporary Redirect");
    EXPECT_FALSE(respond());
    EXPECT_TRUE(elsewhere.requests().isEmpty());
}

TEST(LoopbackLanguageModel, AsksOnlyThisMachine)
{
    for (const char* address :
         {"http://example.org:8080", "https://127.0.0.1:8080", "http://192.168.1.2:8080",
          "http://localhost.example.org", "example.org:80", "http://127.0.0.1.example.org",
          "http://127.0.0.1@example.org", "http://0.0.0.0:80", "file:///etc/passwd", "nonsense"}) {
        EXPECT_TRUE(LoopbackLanguageModel(text(address)).servers().isEmpty()) << address;
        EXPECT_EQ(LoopbackLanguageModel::refusal(text(address)),
                  text("The language model at “%1” is not asked, because it is not on this computer.")
                      .arg(text(address)));
    }
    for (const char* address : {"", "http://127.0.0.1:8080", "localhost:8080", "http://[::1]:99"}) {
        EXPECT_EQ(LoopbackLanguageModel::refusal(text(address)), QString()) << address;
    }
    EXPECT_EQ(LoopbackLanguageModel(text("http://localhost:99")).servers(),
              QList<QUrl>{QUrl(text("http://127.0.0.1:99"))});
    EXPECT_EQ(LoopbackLanguageModel(text("localhost:99")).servers(),
              QList<QUrl>{QUrl(text("http://127.0.0.1:99"))});
    EXPECT_EQ(LoopbackLanguageModel(text("http://[::1]:99")).servers().size(), 1);
    EXPECT_EQ(LoopbackLanguageModel().servers().size(), 2);
}

TEST(LoopbackLanguageModel, IsNotAvailableWhereNothingListens)
{
    quint16 port = 0;
    {
        const LocalServer gone;
        port = gone.serverPort();
    }
    LoopbackLanguageModel model(text("http://127.0.0.1:%1").arg(port));
    EXPECT_TRUE(endsWithNothing(model));
}
