#include "import/ImportCoordinator.h"

#include "import/InboxWatch.h"
#include "import/error/RecipeImportError.h"

#include "support/Outcome.h"
#include <QCoro/QCoroFuture>
#include <QCoro/QCoroSignal>
#include <QtCore/QDir>
#include <QtCore/QPromise>
#include <QtCore/QScopeGuard>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

using namespace ovrin;

namespace {

RecipeDraft complete(const QString& title, const std::optional<QUrl>& source = {})
{
    RecipeDraft draft;
    draft.title = title;
    draft.sourceURL = source;
    draft.ingredients = {QStringLiteral("2 eggs")};
    draft.steps = {RecipeStep{.title = {}, .paragraphs = {QStringLiteral("Whisk.")}}};
    return draft;
}

RecipeDraft incomplete(const QString& title, const std::optional<QUrl>& source = {})
{
    RecipeDraft draft = complete(title, source);
    draft.steps.clear();
    return draft;
}

const QUrl address(QStringLiteral("https://food.example/soup"));

/// Makes a photo of everything but bytes that say "bomb".
class TestPhotos : public PhotoMaker
{
public:
    QCoro::Task<std::optional<Photo>> photo(QByteArray bytes, std::stop_token) override
    {
        if (bytes.contains("bomb"))
            co_return std::nullopt;
        co_return Photo{"made of " + bytes, QStringLiteral("000000")};
    }
};

class ImportCoordinatorTest : public testing::Test
{
protected:
    ImportCoordinatorTest()
    {
        RecipeStore::Options options;
        options.folder = home.filePath(QStringLiteral("library"));
        store = RecipeStore::open(options).store;
    }

    std::unique_ptr<ImportCoordinator> make()
    {
        return std::make_unique<ImportCoordinator>(ImportCoordinator::Services{
            .store = *store,
            .importPage = [this](QUrl url, std::stop_token stop) { return importPage(url, stop); },
            .importFile = [this](QString, std::stop_token stop) { return importDocument(stop); },
            .importImage = [this](QByteArray, QString, std::stop_token stop) { return importDocument(stop); },
            .photos = photos,
            .clock = systemNow,
            .inbox = inboxPath(),
            .reviewFolder = home.filePath(QStringLiteral("Review")),
        });
    }

    /// Suspends until the test answers.
    QCoro::Task<RecipeDraft> importPage(QUrl url, std::stop_token)
    {
        requests << url;
        const auto counting = qScopeGuard([this] { ++finished; });
        auto promise = std::make_shared<QPromise<void>>();
        promise->start();
        pending << promise;
        co_await promise->future();
        if (error)
            std::rethrow_exception(error);
        RecipeDraft copy = answer; // what is returned is moved from
        co_return copy;
    }

    QCoro::Task<ImportCoordinator::Document> importDocument(std::stop_token stop)
    {
        const RecipeDraft draft = co_await importPage({}, stop);
        ImportCoordinator::Document document{draft, notice};
        co_return document;
    }

    void untilSaved()
    {
        const auto saved = [this]() -> QCoro::Task<SaveResult> { co_return co_await store->saved(); };
        EXPECT_TRUE(QCoro::waitFor(saved()).isSaved());
        QCoreApplication::processEvents();
    }

    void answerNext()
    {
        const int before = finished;
        pending.takeFirst()->finish();
        while (finished == before)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    void answerAll()
    {
        while (!pending.isEmpty())
            answerNext();
    }

    QString inboxPath() const { return home.filePath(QStringLiteral("group/Inbox")); }
    QStringList filesIn(const QString& folder) const
    {
        return QDir(home.filePath(folder)).entryList(QDir::Files, QDir::Name);
    }
    void leaveInInbox(const QString& name, const QByteArray& bytes) const
    {
        QDir().mkpath(inboxPath());
        QFile file(inboxPath() + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir home;
    TestPhotos photos;
    std::unique_ptr<RecipeStore> store;
    QList<QUrl> requests;
    QList<std::shared_ptr<QPromise<void>>> pending;
    int finished = 0;
    RecipeDraft answer;
    /// What comes with a document.
    QString notice;
    std::exception_ptr error;
};

TEST_F(ImportCoordinatorTest, SavesACompletePageAndOpensItTheSecondTimeWithoutARequest)
{
    const auto coordinator = make();
    answer = complete(QStringLiteral("Soup"), address);
    coordinator->importPage(address);
    EXPECT_EQ(coordinator->activity(), QStringLiteral("Importing from food.example…"));
    answerAll();
    EXPECT_EQ(coordinator->activity(), QString());
    const RecipePtr opened = coordinator->takeOpenedRecipe();
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->title(), QStringLiteral("Soup"));
    EXPECT_FALSE(coordinator->openedRecipe());
    EXPECT_FALSE(coordinator->draftToReview());

    coordinator->importPage(address);
    EXPECT_EQ(requests.size(), 1);
    EXPECT_EQ(coordinator->takeOpenedRecipe(), opened);
    EXPECT_EQ(store->count(), 1);
}

TEST_F(ImportCoordinatorTest, OpensWhatARedirectLeadsTo)
{
    const auto coordinator = make();
    answer = complete(QStringLiteral("Soup"), address);
    coordinator->importPage(address);
    answerAll();
    const RecipePtr first = coordinator->takeOpenedRecipe();
    coordinator->importPage(QUrl(QStringLiteral("https://short.example/1")));
    answerAll();
    EXPECT_EQ(coordinator->takeOpenedRecipe(), first);
    EXPECT_EQ(store->count(), 1);
}

TEST_F(ImportCoordinatorTest, ReportsAFailureWithItsAddressEachTime)
{
    const auto coordinator = make();
    error = std::make_exception_ptr(RecipeImportError::badResponse(404));
    coordinator->importPage(address);
    answerAll();
    ASSERT_TRUE(coordinator->failure());
    const auto first = *coordinator->failure();
    EXPECT_EQ(first.message, QStringLiteral("The site responded with an error (HTTP 404)."));
    EXPECT_EQ(first.address, address);
    coordinator->clearFailure();
    coordinator->importPage(address);
    answerAll();
    ASSERT_TRUE(coordinator->failure());
    EXPECT_NE(coordinator->failure()->id, first.id);

    coordinator->addManually(first.address);
    ASSERT_TRUE(coordinator->draftToReview());
    EXPECT_EQ(coordinator->draftToReview()->sourceURL, address);
    EXPECT_EQ(coordinator->reviewNotice(),
              QStringLiteral("Type or paste the recipe, and it will be laid out like any other."));
}

TEST_F(ImportCoordinatorTest, HasEveryDocumentReviewedWithWhatIsToBeSaidOfIt)
{
    const auto coordinator = make();
    answer = complete(QStringLiteral("Soup"));
    coordinator->importDocument(QStringLiteral("/tmp/soup.pdf"));
    EXPECT_EQ(coordinator->activity(), QStringLiteral("Reading soup.pdf…"));
    answerAll();
    ASSERT_TRUE(coordinator->draftToReview());
    EXPECT_EQ(coordinator->reviewNotice(), ImportCoordinator::fileNotice());
    coordinator->clearDraftToReview();

    notice = QStringLiteral("This is the first of two.");
    coordinator->importDocument("bytes", QStringLiteral("image/png"));
    EXPECT_EQ(coordinator->activity(), QStringLiteral("Reading image…"));
    answerAll();
    EXPECT_EQ(coordinator->reviewNotice(), notice);
    EXPECT_EQ(store->count(), 0);
}

TEST_F(ImportCoordinatorTest, LosesNoneOfSeveralDraftsNotEvenOverARestart)
{
    auto coordinator = make();
    for (int i = 0; i < 5; ++i) {
        answer = incomplete(QString::number(i), QUrl(QStringLiteral("https://food.example/%1").arg(i)));
        coordinator->importPage(*answer.sourceURL);
        answerAll();
    }
    EXPECT_EQ(coordinator->draftToReview()->title, QStringLiteral("0"));
    EXPECT_EQ(coordinator->waitingDrafts(), 4);
    EXPECT_EQ(coordinator->reviewNotice(), ImportCoordinator::webNotice());
    coordinator->clearDraftToReview();
    RecipeDraft edited = *coordinator->draftToReview();
    edited.title = QStringLiteral("1, edited");
    coordinator->keepReviewed(edited);

    coordinator.reset();
    coordinator = make();
    EXPECT_EQ(coordinator->draftToReview()->title, QStringLiteral("1, edited"));
    EXPECT_EQ(coordinator->waitingDrafts(), 3);
    while (coordinator->draftToReview()) {
        const RecipeDraft draft = *coordinator->draftToReview();
        coordinator->saveReviewed(draft);
    }
    untilSaved();
    EXPECT_EQ(store->count(), 4);
    EXPECT_EQ(filesIn(QStringLiteral("Review")), QStringList());
}

TEST_F(ImportCoordinatorTest, KeepsNothingOfACancelledImportAndOutlivesItsOwner)
{
    auto coordinator = make();
    answer = complete(QStringLiteral("Soup"), address);
    coordinator->importPage(address);
    coordinator->importPage(QUrl(QStringLiteral("https://other.example/")));
    EXPECT_EQ(coordinator->activity(), QStringLiteral("Importing from other.example…"));
    coordinator->cancel();
    EXPECT_EQ(coordinator->activity(), QStringLiteral("Importing from food.example…"));
    coordinator->cancel();
    EXPECT_EQ(coordinator->activity(), QString());
    answerAll();
    EXPECT_EQ(store->count(), 0);
    EXPECT_FALSE(coordinator->openedRecipe());

    coordinator->importPage(address);
    coordinator.reset();
    answerAll();
    EXPECT_EQ(store->count(), 0);
}

TEST_F(ImportCoordinatorTest, SendsEveryDocumentToReview)
{
    const auto coordinator = make();
    answer = complete(QStringLiteral("Clipping"));
    coordinator->handle(QUrl::fromLocalFile(QStringLiteral("/tmp/a b/Grandma’s.pdf")));
    EXPECT_EQ(coordinator->activity(), QStringLiteral("Reading Grandma’s.pdf…"));
    answerAll();
    EXPECT_EQ(coordinator->draftToReview()->title, QStringLiteral("Clipping"));
    EXPECT_EQ(coordinator->reviewNotice(),
              QStringLiteral("Recognized from your file. Check the ingredients and steps, then save."));
    coordinator->importDocument(QByteArray("..."), QStringLiteral("image/png"));
    EXPECT_EQ(coordinator->activity(), QStringLiteral("Reading image…"));
    answerAll();
    EXPECT_EQ(coordinator->waitingDrafts(), 1);
    EXPECT_EQ(store->count(), 0);
}

TEST_F(ImportCoordinatorTest, TakesTheInboxOnceAndKeepsWhatItCannotRead)
{
    RecipeDraft withPhoto = complete(QStringLiteral("With photo"), address);
    withPhoto.imageData = "foreign";
    RecipeDraft bomb = complete(QStringLiteral("Typed"));
    bomb.imageData = "bomb";
    leaveInInbox(QStringLiteral("1.json"), withPhoto.toJson());
    leaveInInbox(QStringLiteral("2.json"), bomb.toJson());
    leaveInInbox(QStringLiteral("3.json"), "{\"title\": \"half");
    leaveInInbox(QStringLiteral("4.JSON"), bomb.toJson());
    leaveInInbox(QStringLiteral("5.json.part"), "...");

    const auto coordinator = make();
    coordinator->handle(QUrl(QStringLiteral("ovrin://whatever")));
    coordinator->drainInbox(); // at the same time, as when the window becomes active
    QCoreApplication::processEvents();
    untilSaved();

    ASSERT_EQ(store->count(), 1);
    EXPECT_EQ(store->at(0)->imageData(), QByteArray("made of foreign"));
    ASSERT_TRUE(coordinator->draftToReview());
    EXPECT_EQ(coordinator->draftToReview()->title, QStringLiteral("Typed"));
    EXPECT_FALSE(coordinator->draftToReview()->imageData);
    EXPECT_EQ(coordinator->waitingDrafts(), 0);
    EXPECT_EQ(filesIn(QStringLiteral("group/Inbox")),
              QStringList({QStringLiteral("4.JSON"), QStringLiteral("5.json.part")}));
    EXPECT_EQ(filesIn(QStringLiteral("group/Rejected")), QStringList{QStringLiteral("3.json")});
}

TEST_F(ImportCoordinatorTest, TakesWhatComesWhileTheWindowIsActive)
{
    leaveInInbox(QStringLiteral("half.json"), "{\"title\": \"half");
    const auto coordinator = make();
    InboxWatch watch(inboxPath());
    QObject::connect(&watch, &InboxWatch::changed, coordinator.get(),
                     [&] { coordinator->drainInbox(ImportCoordinator::Unreadable::Leave); });
    watch.setActive(true);
    const DraftFolder inbox(inboxPath());
    ASSERT_TRUE(inbox.add(complete(QStringLiteral("First")), Instant{}));
    ASSERT_TRUE(inbox.add(complete(QStringLiteral("Second")), Instant{}));
    EXPECT_TRUE(runUntil([&] { return coordinator->waitingDrafts() == 1; }));
    EXPECT_EQ(filesIn(QStringLiteral("group/Inbox")), QStringList{QStringLiteral("half.json")})
        << "what may still be written is left alone";
    EXPECT_EQ(filesIn(QStringLiteral("group/Rejected")), QStringList());

    // While another window is in front, drafts wait.
    watch.setActive(false);
    ASSERT_TRUE(inbox.add(complete(QStringLiteral("Third")), Instant{}));
    QCoreApplication::processEvents();
    EXPECT_EQ(coordinator->waitingDrafts(), 1);
    coordinator->drainInbox();
    EXPECT_EQ(coordinator->waitingDrafts(), 2);
    EXPECT_EQ(filesIn(QStringLiteral("group/Rejected")), QStringList{QStringLiteral("half.json")});

    // Emptied by a broom: it is there again when the window is.
    ASSERT_TRUE(QDir(inboxPath()).removeRecursively());
    watch.setActive(true);
    ASSERT_TRUE(inbox.add(complete(QStringLiteral("Fourth")), Instant{}));
    EXPECT_TRUE(runUntil([&] { return coordinator->waitingDrafts() == 3; }));
}

TEST_F(ImportCoordinatorTest, TakesAnotherDraftByTheSameName)
{
    const QString name = QStringLiteral("1.json");
    const QDateTime written = QDateTime::currentDateTime();
    const auto leave = [&](const QString& title, const std::optional<QUrl>& source, qint64 seconds) {
        leaveInInbox(name, complete(title, source).toJson());
        QFile file(inboxPath() + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(written.addSecs(seconds), QFileDevice::FileModificationTime));
    };
    leave(QStringLiteral("Soup"), std::nullopt, 0);
    const auto coordinator = make();
    coordinator->drainInbox();
    EXPECT_EQ(coordinator->waitingDrafts(), 0);
    EXPECT_EQ(filesIn(QStringLiteral("group/Inbox")), QStringList());
    leave(QStringLiteral("Cake"), std::nullopt, 0);
    coordinator->drainInbox();
    EXPECT_EQ(coordinator->waitingDrafts(), 1) << "written within the same tick of the file system's clock";

    // Written over a draft that is taken but not yet saved: it does not go with that one.
    leave(QStringLiteral("Bread"), address, 1);
    coordinator->drainInbox();
    leave(QStringLiteral("Tart"), std::nullopt, 2);
    untilSaved();
    ASSERT_EQ(store->count(), 1);
    EXPECT_EQ(filesIn(QStringLiteral("group/Inbox")), QStringList{name});
    coordinator->drainInbox();
    EXPECT_EQ(coordinator->waitingDrafts(), 2);
    EXPECT_EQ(filesIn(QStringLiteral("group/Inbox")), QStringList());
}

TEST_F(ImportCoordinatorTest, IgnoresForeignLinks)
{
    const auto coordinator = make();
    for (const char* link :
         {"https://food.example/", "mailto:a@b.example", "ovrin-timer://start?seconds=3", ""})
        coordinator->handle(QUrl(QString::fromLatin1(link)));
    EXPECT_TRUE(requests.isEmpty());
    coordinator->handle(QUrl(QStringLiteral("ovrin://import?url=HTTPS://food.example/soup")));
    EXPECT_EQ(requests, QList<QUrl>{address});
    answerAll();
}

} // namespace
