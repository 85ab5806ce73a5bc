#include "browser/host/NativeMessages.h"
#include "fuzz/browser/BrowserTargets.h"
#include "services/PageImport.h"
#include "support/FoundCases.h"
#include "support/InboxTest.h"
#include "support/LocalServer.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <gtest/gtest.h>

#include <cstring>

using namespace ovrin;

namespace {

const QString chromium = QStringLiteral("chrome-extension://" OVRIN_CHROMIUM_EXTENSION "/");

/// A message as a browser writes it, perhaps with a lie about its length.
QByteArray framed(const QByteArray& json, std::optional<quint32> claimed = std::nullopt)
{
    const quint32 length = claimed.value_or(quint32(json.size()));
    return QByteArray(reinterpret_cast<const char*>(&length), sizeof length) + json;
}

QByteArray opening(const QByteArray& address, const QByteArray& parts = "1")
{
    return framed(R"({"kind":"page","address":")" + address + R"(","parts":)" + parts + '}');
}

QByteArray part(const QByteArray& html)
{
    const QJsonObject object{{QStringLiteral("kind"), QStringLiteral("part")},
                             {QStringLiteral("html"), QString::fromUtf8(html)}};
    return framed(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QByteArray page(const QByteArray& instructions = R"("Cook.")")
{
    return R"(<html><head><title>t</title><script type="application/ld+json">{"@type": "Recipe",
        "name": "Onion Soup", "recipeIngredient": ["2 onions"], "recipeInstructions": )" +
           instructions + "}</script>";
}

class BrowserHostTest : public InboxTest
{
protected:
    struct Told
    {
        int status;
        QJsonObject answer;
        bool wasAnswered;
    };

    Told tell(const QByteArray& input, const QStringList& arguments = {chromium})
    {
        const Answer answer = start(QStringLiteral(OVRIN_BROWSER_HOST), arguments, input);
        const QByteArray& out = answer.bytes;
        quint32 length = 0;
        if (out.size() < qsizetype(sizeof length))
            return {answer.status, {}, false};
        std::memcpy(&length, out.constData(), sizeof length);
        EXPECT_EQ(out.size(), qsizetype(sizeof length + length));
        return {answer.status, QJsonDocument::fromJson(out.mid(sizeof length)).object(), true};
    }
};

TEST_F(BrowserHostTest, LeavesThePageThatItIsGivenInTheInbox)
{
    LocalServer server;
    const QUrl address = server.url("/soup");
    const QByteArray html = page();
    // What a later extension may say besides does not disturb it.
    const QByteArray start = framed(R"({"kind":"page","theme":{"dark":true},"parts":3,"address":")" +
                                    address.toEncoded() + R"("})");
    const Told told = tell(start + part(html.left(50)) + part({}) + part(html.mid(50)));
    EXPECT_EQ(told.status, 0);
    EXPECT_EQ(told.answer, (QJsonObject{{QStringLiteral("sent"), true},
                                        {QStringLiteral("title"), QStringLiteral("Onion Soup")},
                                        {QStringLiteral("complete"), true}}));
    ASSERT_EQ(inbox().size(), 1);
    EXPECT_EQ(inbox().first().sourceURL, address);
    EXPECT_EQ(inbox().first().ingredients, QStringList{QStringLiteral("2 onions")});
    // The page itself is not fetched again.
    EXPECT_TRUE(server.requests().isEmpty());

    const Told half = tell(opening("https://food.example/soup") + part(page("[]")),
                           {QStringLiteral("/usr/lib/mozilla/native-messaging-hosts/org.ovrin.browser.json"),
                            QStringLiteral(OVRIN_FIREFOX_EXTENSION)});
    EXPECT_EQ(half.answer.value(QLatin1String("complete")), QJsonValue(false));
    EXPECT_EQ(inbox().size(), 2);
}

// A browser waits for the answer before it lets go.
TEST_F(BrowserHostTest, AnswersAtOnceAndEndsWithTheBrowser)
{
    for (const QByteArray& input :
         {opening("https://food.example/soup") + part(page()), framed("{}") + framed("{}")}) {
        QProcess host;
        host.setProcessEnvironment(environment());
        host.start(QStringLiteral(OVRIN_BROWSER_HOST), {chromium});
        host.write(input);
        ASSERT_TRUE(host.waitForReadyRead());
        EXPECT_EQ(host.state(), QProcess::Running);
        EXPECT_TRUE(host.readAllStandardOutput().contains("\"sent\""));
        host.closeWriteChannel();
        EXPECT_TRUE(host.waitForFinished());
    }
}

TEST_F(BrowserHostTest, ListensToItsOwnExtensionAlone)
{
    const QByteArray input = opening("https://food.example/soup") + part(page());
    const QString firefox = QStringLiteral(OVRIN_FIREFOX_EXTENSION);
    for (const QStringList& arguments :
         QList<QStringList>{{},
                            {QStringLiteral("chrome-extension://aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa/")},
                            {chromium + QStringLiteral("x")},
                            {chromium.chopped(1)},
                            {QStringLiteral("https://food.example/")},
                            {firefox},
                            {QStringLiteral("/m.json"), QStringLiteral("other") + firefox}}) {
        const Told told = tell(input, arguments);
        EXPECT_EQ(told.status, 2) << arguments.join(u' ').toStdString();
        EXPECT_FALSE(told.wasAnswered);
    }
    EXPECT_FALSE(QFile::exists(group()));
    EXPECT_EQ(start(QStringLiteral(OVRIN_BROWSER_HOST), {QStringLiteral("--version")}).out,
              QStringLiteral("ovrin-browser-host " OVRIN_VERSION "\n"));
}

TEST_F(BrowserHostTest, RefusesWhatIsNoPageOfTheWeb)
{
    const QString confused =
        QStringLiteral("Ovrin and this extension do not understand each other. Update both.");
    const QString notWeb = QStringLiteral("Ovrin can only take pages from the web.");
    const QString tooLarge = RecipeImportError::tooLarge().errorDescription();
    const QByteArray open = opening("https://food.example/soup");
    const auto announced = [](const QByteArray& parts) {
        return opening("https://food.example/soup", parts) + part(page());
    };
    const auto from = [](const QByteArray& address) { return opening(address) + part(page()); };
    struct Row
    {
        const char* what;
        QByteArray input;
        /// Empty where the browser has let go and nobody is there to tell.
        QString message;
    };
    const QList<Row> rows = {
        {"nothing at all", {}, {}},
        {"the end before the page", open, {}},
        {"no recipe", open + part("<p>nothing here"), QStringLiteral("No recipe was found on this page.")},
        {"half a length", QByteArray("\x05\x00", 2), confused},
        {"a length without a message", framed({}, 20), confused},
        {"a length beyond the message", framed(R"({"kind":"page"})", 4096), confused},
        {"a length short of the message", framed(R"({"kind":"page"})", 3), confused},
        {"the largest length", framed("{}", 0xffffffff), confused},
        {"a length above the bound", framed("{}", browser::NativeMessages::maximumBytes + 1), confused},
        {"an empty message", framed({}), confused},
        {"broken JSON", framed(R"({"kind":"page","address")"), confused},
        {"JSON and more", framed(R"({"kind":"page","address":"https://a.example/","parts":1} {})"), confused},
        {"broken UTF-8", framed("{\"kind\":\"page\",\"address\":\"https://a.example/\xff\",\"parts\":1}"),
         confused},
        {"an array", framed("[1]"), confused},
        {"nesting", framed(QByteArray(1 << 20, '[')), confused},
        {"an unknown kind", framed(R"({"kind":"library","address":"https://a.example/"})"), confused},
        {"kind of a wrong type", framed(R"({"kind":1,"address":"https://a.example/"})"), confused},
        {"address of a wrong type", framed(R"({"kind":"page","address":["https://a.example/"],"parts":1})"),
         confused},
        {"no parts", announced("0"), confused},
        {"parts below none", announced("-1"), confused},
        {"parts of a wrong type", announced("\"1\""), confused},
        {"half a part", announced("1.5"), confused},
        {"parts beyond counting", announced("1e300"), confused},
        {"too many parts", announced("1000000"), confused},
        {"a part before the page", part(page()), confused},
        {"a part without text", open + framed(R"({"kind":"part"})"), confused},
        {"text of a wrong type", open + framed(R"({"kind":"part","html":{"a":1}})"), confused},
        {"a page within a page", opening("https://food.example/", "2") + part("<p>") + open, confused},
        {"a file", from("file:///etc/passwd"), notWeb},
        {"a script", from("javascript:alert(1)"), notWeb},
        {"a page of the browser", from("chrome://settings/"), notWeb},
        {"no host", from("https:///soup"), notWeb},
        {"no address", from(""), notWeb},
        {"an endless address", from("https://food.example/" + QByteArray(100'000, 'a')), notWeb},
        {"a page beyond the bound",
         opening("https://food.example/", "4") +
             part(QByteArray(PageImport::maximumPageBytes / 3 + 1, 'a')).repeated(3) + part({}),
         tooLarge},
    };
    for (const Row& row : rows) {
        const Told told = tell(row.input);
        EXPECT_EQ(told.status, 1) << row.what;
        EXPECT_EQ(told.wasAnswered, !row.message.isEmpty()) << row.what;
        if (told.wasAnswered) {
            EXPECT_EQ(told.answer, (QJsonObject{{QStringLiteral("sent"), false},
                                                {QStringLiteral("message"), row.message}}))
                << row.what;
        }
        EXPECT_FALSE(QFile::exists(group())) << row.what;
    }
}

TEST_F(BrowserHostTest, SaysThatTheInboxCannotBeWritten)
{
    write(QStringLiteral(OVRIN_APP_GROUP), {});
    const Told told = tell(opening("https://food.example/soup") + part(page()));
    EXPECT_EQ(told.status, 1);
    EXPECT_TRUE(told.answer.value(QLatin1String("message")).toString().contains(QStringLiteral("inbox")));
}

// The fuzzer's seeds and everything that it ever found.
TEST(BrowserMessagesFuzzer, HasNothingLeftToFind)
{
    EXPECT_GE(replay(QStringLiteral("fuzz/browser/seeds"), fuzz::browserMessages), 3);
}

} // namespace
