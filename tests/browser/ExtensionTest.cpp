#include "browser/Chromium.h"
#include "support/InboxTest.h"
#include "support/LocalServer.h"
#include "support/Photo.h"

#include <QtCore/QJsonDocument>
#include <gtest/gtest.h>

using namespace ovrin;

namespace {

const QString extensionId = QStringLiteral(OVRIN_CHROMIUM_EXTENSION);
const QString popup = QStringLiteral("chrome-extension://" OVRIN_CHROMIUM_EXTENSION "/popup.html");

/// A page whose recipe only exists once its script has run.
QByteArray scriptedPage(const QByteArray& recipe)
{
    return R"(<!DOCTYPE html><meta charset="utf-8"><title>Loading</title><script>
        setTimeout(() => {
            const script = document.createElement("script");
            script.type = "application/ld+json";
            script.textContent = JSON.stringify({"@type": "Recipe", )" +
           recipe + R"(});
            document.head.append(script);
            document.title = "Ready";
        }, 20);
    </script>)";
}

const QString ready = QStringLiteral("document.title === 'Ready'");
const QByteArray stew = R"(name: "Stew", recipeIngredient: ["1 onion"], recipeInstructions: ["Stew."])";

/// The extension in a real Chromium, with the real host.
class BrowserExtensionTest : public InboxTest
{
protected:
    void SetUp() override { installHost(QStringLiteral(OVRIN_BROWSER_HOST)); }

    QString profile() const { return home.filePath(QStringLiteral("profile")); }

    void installHost(const QString& program) const
    {
        ASSERT_TRUE(QDir().mkpath(profile() + QStringLiteral("/NativeMessagingHosts")));
        const QJsonObject manifest{{QStringLiteral("name"), QStringLiteral("org.ovrin.browser")},
                                   {QStringLiteral("description"), QStringLiteral("Takes recipes to Ovrin")},
                                   {QStringLiteral("path"), program},
                                   {QStringLiteral("type"), QStringLiteral("stdio")},
                                   {QStringLiteral("allowed_origins"),
                                    QJsonArray{QStringLiteral("chrome-extension://%1/").arg(extensionId)}}};
        write(QStringLiteral("profile/NativeMessagingHosts/org.ovrin.browser.json"),
              QJsonDocument(manifest).toJson());
    }

    /// What the popup says of the page at `url`: its lines, the link to Ovrin too when it is there.
    QStringList send(Chromium& browser, const QUrl& url, const QString& condition = ready)
    {
        browser.open(url, condition);
        browser.pressButton(extensionId);
        const QJsonValue said = browser.waitFor(
            popup,
            QStringLiteral("document.body.dataset.state === 'sending' ? null : document.body.innerText"));
        QStringList lines = said.toString().split(u'\n', Qt::SkipEmptyParts);
        for (QString& line : lines)
            line = line.trimmed();
        return lines;
    }

    LocalServer server;
};

TEST_F(BrowserExtensionTest, SendsThePageAsTheBrowserShowsIt)
{
    server.serve("/stew", scriptedPage(stew + R"(, image: "/stew.png")"));
    server.serve("/stew.png", photo());
    Chromium browser(profile(), environment());
    // The id that the host's manifest names is the one that the manifest's key gives.
    ASSERT_EQ(browser.load(QStringLiteral(OVRIN_BROWSER_EXTENSION)), extensionId);

    QUrl address = server.url("/stew");
    address.setFragment(QStringLiteral("method"));
    EXPECT_EQ(send(browser, address), (QStringList{QStringLiteral("Sent to Ovrin."), QStringLiteral("Stew"),
                                                   QStringLiteral("Open Ovrin")}));
    ASSERT_EQ(inbox().size(), 1);
    const RecipeDraft draft = inbox().first();
    EXPECT_TRUE(draft.isComplete());
    EXPECT_EQ(draft.title, QStringLiteral("Stew"));
    EXPECT_EQ(draft.sourceURL, server.url("/stew"));
    EXPECT_TRUE(draft.imageData && draft.imageData->startsWith("\xff\xd8"));
    // The reader's browser has fetched the page; nobody else has.
    const auto asked = server.requests();
    EXPECT_EQ(std::count_if(asked.begin(), asked.end(), [](const auto& r) { return r.path == "/stew"; }), 1);
    // Return opens Ovrin.
    EXPECT_EQ(browser.waitFor(popup, QStringLiteral("document.activeElement.href")).toString(),
              QStringLiteral("ovrin:inbox"));
    EXPECT_EQ(browser.waitFor(popup, QStringLiteral("document.getElementById('status').role")).toString(),
              QStringLiteral("status"));
}

TEST_F(BrowserExtensionTest, SaysWhatIsMissingOrWentWrong)
{
    server.serve("/half", scriptedPage(R"(name: "Stew")"));
    server.serve("/none", "<meta charset=utf-8><p>Nothing");
    Chromium browser(profile(), environment());
    browser.load(QStringLiteral(OVRIN_BROWSER_EXTENSION));

    EXPECT_EQ(send(browser, server.url("/none"), QStringLiteral("document.readyState === 'complete'")),
              QStringList{QStringLiteral("No recipe was found on this page.")});
    EXPECT_EQ(send(browser, QUrl(QStringLiteral("chrome://version/")),
                   QStringLiteral("document.readyState === 'complete'")),
              QStringList{QStringLiteral("This page cannot be read by extensions.")});
    EXPECT_FALSE(QFile::exists(group()));
    EXPECT_EQ(
        send(browser, server.url("/half")),
        (QStringList{
            QStringLiteral("Sent to Ovrin."),
            QStringLiteral("Stew: this page didn’t include a complete recipe, so fill in what’s missing."),
            QStringLiteral("Open Ovrin")}));
    EXPECT_EQ(inbox().size(), 1);
}

TEST_F(BrowserExtensionTest, SaysThatOvrinIsNotThere)
{
    installHost(home.filePath(QStringLiteral("nothing-here")));
    server.serve("/stew", scriptedPage(stew));
    Chromium browser(profile(), environment());
    browser.load(QStringLiteral(OVRIN_BROWSER_EXTENSION));
    EXPECT_EQ(send(browser, server.url("/stew")),
              QStringList{QStringLiteral("Ovrin could not be reached. Is it installed on this computer?")});
}

// Larger than one message; characters of two units lie across every cut, for one of the two pages.
TEST_F(BrowserExtensionTest, CutsALongPageWithoutHarm)
{
    Chromium browser(profile(), environment());
    browser.load(QStringLiteral(OVRIN_BROWSER_EXTENSION));
    for (const QByteArray shift : {"", "x"}) {
        const QByteArray path = "/long" + shift;
        server.serve(path,
                     scriptedPage(stew + R"(, description: ")" + shift + R"(" + "🍲".repeat(1_200_000))"));
        const QStringList said = send(browser, server.url(path));
        EXPECT_EQ(said.value(0), QStringLiteral("Sent to Ovrin.")) << said.join(u'\n').toStdString();
        ASSERT_FALSE(inbox().isEmpty());
        EXPECT_TRUE(inbox().last().summary ==
                    QString::fromLatin1(shift) + QStringLiteral("🍲").repeated(1'200'000));
    }
    EXPECT_EQ(inbox().size(), 2);
}

} // namespace
