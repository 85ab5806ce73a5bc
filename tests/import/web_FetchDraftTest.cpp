#include "import/web/RecipeImporter.h"
#include "support/LocalServer.h"
#include "support/Outcome.h"

#include <QCoro/QCoroTimer>

#include <QtCore/QTimer>
#include <QtNetwork/QNetworkAccessManager>

#include <gtest/gtest.h>

namespace ovrin {
namespace {

QByteArray recipe(const QByteArray& name, const QByteArray& more = {})
{
    return "<script type=\"application/ld+json\">{\"@type\":\"Recipe\",\"name\":\"" + name + "\"" + more +
           "}</script>";
}

const QByteArray method(R"(,"recipeIngredient":"salt","recipeInstructions":"Stir.","image":"/photo")");

/// Renders every page as `answer`, or fails without one, or goes on until it is stopped.
class FakeRenderer : public PageRenderer
{
public:
    QCoro::Task<QString> html(QUrl url, std::chrono::milliseconds timeout, std::stop_token stop) override
    {
        asked << url;
        lastTimeout = timeout;
        while (endless && !stop.stop_requested()) {
            QTimer turn;
            turn.start(0);
            co_await turn;
        }
        if (!answer) {
            throw TransportError(TransportError::Case::TimedOut);
        }
        co_return QString::fromUtf8(*answer);
    }

    std::optional<QByteArray> answer;
    bool endless = false;
    QList<QUrl> asked;
    std::chrono::milliseconds lastTimeout{};
};

/// Makes "JPEG of ..." of anything but what says that it is no picture.
class FakePhotoMaker : public PhotoMaker
{
public:
    QCoro::Task<std::optional<Photo>> photo(QByteArray bytes, std::stop_token /*stop*/) override
    {
        if (bytes == "no picture") {
            co_return std::nullopt;
        }
        co_return Photo{"JPEG of " + bytes, QStringLiteral("FF8000")};
    }
};

class FetchDraftTest : public testing::Test
{
protected:
    Outcome<RecipeDraft> fetch(const QByteArray& path, RecipeImporter::Options options = {})
    {
        return finished(importer.fetchDraft(site.url(path), {}, options));
    }

    QNetworkAccessManager network;
    LocalServer site;
    PageDownloader downloader{network};
    FakeRenderer renderer;
    FakePhotoMaker photoMaker;
    RecipeImporter importer{downloader, renderer, photoMaker};
};

TEST_F(FetchDraftTest, TakesACompletePageWithItsPhoto)
{
    site.redirect("/old", "/soup");
    site.serve("/soup", recipe("Soup", method));
    site.serve("/photo", "picture");
    const auto outcome = fetch("/old");
    ASSERT_TRUE(outcome.value);
    EXPECT_EQ(outcome.value->title, QStringLiteral("Soup"));
    EXPECT_EQ(outcome.value->sourceURL, site.url("/soup"));
    EXPECT_EQ(outcome.value->imageData, "JPEG of picture");
    EXPECT_EQ(site.requests().last().headers["referer"], site.url("/soup").toEncoded());
    EXPECT_TRUE(renderer.asked.isEmpty());
}

TEST_F(FetchDraftTest, ChoosesBetweenThePageAsSentAndAsRendered)
{
    struct Case
    {
        QByteArray sent;
        std::optional<QByteArray> rendered;
        const char* title;
    };
    const Case cases[] = {
        {recipe("Sent"), recipe("Rendered", method), "Rendered"},
        {recipe("Sent"), recipe("Rendered"), "Sent"},
        {recipe("Sent"), "<p>no title</p>", "Sent"},
        {recipe("Sent"), std::nullopt, "Sent"},
        {"<p>no title</p>", recipe("Rendered"), "Rendered"},
        {"<p>no title</p>", recipe("Rendered", method), "Rendered"},
    };
    site.redirect("/old", "/page");
    for (const Case& c : cases) {
        site.serve("/page", c.sent);
        renderer.answer = c.rendered;
        renderer.asked.clear();
        const auto outcome = fetch("/old");
        ASSERT_TRUE(outcome.value) << c.title;
        EXPECT_EQ(outcome.value->title.toStdString(), c.title);
        EXPECT_EQ(renderer.asked, QList<QUrl>{site.url("/old")});
        EXPECT_EQ(renderer.lastTimeout, std::chrono::seconds(15));
        const bool isRendered = outcome.value->title == u"Rendered";
        EXPECT_EQ(outcome.value->sourceURL, site.url(isRendered ? "/old" : "/page"));
    }
}

TEST_F(FetchDraftTest, ReportsTheDownloadsFailure)
{
    site.serve("/forbidden", recipe("Hidden"), "403 Forbidden");
    site.serve("/empty", "<p>nothing</p>");
    EXPECT_EQ(fetch("/forbidden").failure<RecipeImportError>(), RecipeImportError::badResponse(403));
    EXPECT_EQ(fetch("/empty").failure<RecipeImportError>(), RecipeImportError::noRecipeFound());
    renderer.answer = "<p>nothing</p>";
    EXPECT_EQ(fetch("/forbidden").failure<RecipeImportError>(), RecipeImportError::badResponse(403));
    renderer.answer = recipe("Rendered");
    EXPECT_EQ(fetch("/forbidden").value->title, QStringLiteral("Rendered"));

    NullPageRenderer noRenderer;
    RecipeImporter plain(downloader, noRenderer, photoMaker);
    EXPECT_EQ(finished(plain.fetchDraft(site.url("/forbidden"))).failure<RecipeImportError>(),
              RecipeImportError::badResponse(403));
}

TEST_F(FetchDraftTest, DoesWithoutAPhoto)
{
    site.serve("/soup", recipe("Soup", method));
    for (const QByteArray answer : {"no picture", "picture"}) {
        site.serve("/photo", answer, answer == "picture" ? "404 Not Found" : "200 OK");
        const auto outcome = fetch("/soup");
        ASSERT_TRUE(outcome.value);
        EXPECT_FALSE(outcome.value->imageData);
        EXPECT_EQ(outcome.value->imageURL, site.url("/photo"));
    }
    NullPhotoMaker none;
    RecipeImporter plain(downloader, renderer, none);
    EXPECT_FALSE(finished(plain.fetchDraft(site.url("/soup"))).value->imageData);

    const qsizetype before = site.requests().size();
    RecipeDraft draft;
    EXPECT_EQ(finished(importer.loadImage(draft)).value, draft);
    draft.imageURL = site.url("/photo");
    draft.imageData = "there already";
    EXPECT_EQ(finished(importer.loadImage(draft)).value, draft);
    EXPECT_EQ(site.requests().size(), before);
}

TEST_F(FetchDraftTest, LeavesOutWhatIsNotWanted)
{
    site.serve("/soup", recipe("Soup", ",\"image\":\"/photo\""));
    renderer.answer = recipe("Rendered", method);
    const auto outcome = fetch("/soup", {.render = false, .photo = false});
    EXPECT_EQ(outcome.value->title, QStringLiteral("Soup"));
    EXPECT_TRUE(renderer.asked.isEmpty());
    EXPECT_EQ(site.requests().size(), 1);
}

TEST_F(FetchDraftTest, CanBeCalledOffAtEachStage)
{
    const auto silent = [](const LocalServer::Request&, QTcpSocket&) {};
    site.on("/silent", silent);
    site.serve("/rendered", recipe("Soup"));
    site.serve("/soup", recipe("Soup", method));
    site.on("/photo", silent);
    renderer.endless = true;
    const std::pair<const char*, std::function<bool()>> stages[] = {
        {"/silent", [this] { return site.requests().size() == 1; }},
        {"/rendered", [this] { return !renderer.asked.isEmpty(); }},
        {"/soup", [this] { return site.requests().last().path == "/photo"; }},
    };
    for (const auto& [path, reached] : stages) {
        std::stop_source source;
        const auto outcome = outcomeOf(importer.fetchDraft(site.url(path), source.get_token()));
        ASSERT_TRUE(runUntil(reached)) << path;
        EXPECT_FALSE(outcome->done);
        source.request_stop();
        ASSERT_TRUE(runUntil([&] { return outcome->done; })) << path;
        EXPECT_TRUE(outcome->failure<ImportCancelled>()) << path;
    }
}

} // namespace
} // namespace ovrin
