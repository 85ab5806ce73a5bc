#pragma once

#include "import/DraftFolder.h"
#include "import/ReviewQueue.h"
#include "import/web/PhotoMaker.h"
#include "model/RecipeStore.h"

#include <QCoro/QCoroTask>
#include <QtCore/QDateTime>
#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QUuid>

#include <functional>
#include <memory>
#include <stop_token>

namespace ovrin {

/// The one object through which every import reaches the library. It runs the right importer, says what is
/// going on, and ends each import in one of three ways: a recipe to open, a draft to review, or a failure.
/// Lives on the main thread; the importers suspend rather than block it.
class ImportCoordinator : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString activity READ activity NOTIFY activityChanged)
    Q_PROPERTY(QString reviewNotice READ reviewNotice NOTIFY draftToReviewChanged)
    Q_PROPERTY(int waitingDrafts READ waitingDrafts NOTIFY waitingDraftsChanged)

public:
    /// A failure to show. Two with the same message are two.
    struct Failure
    {
        QUuid id = QUuid::createUuid();
        QString message;
        /// The web address that failed, when there was one.
        std::optional<QUrl> address;
    };

    /// What reading a document gave.
    struct Document
    {
        RecipeDraft draft;
        /// What the review is to say of it; when empty, fileNotice().
        QString notice;
    };

    /// What it needs of the rest of the program. Importers fail by throwing what importErrorDescription()
    /// knows.
    struct Services
    {
        RecipeStore& store;
        std::function<QCoro::Task<RecipeDraft>(QUrl, std::stop_token)> importPage;
        std::function<QCoro::Task<Document>(QString path, std::stop_token)> importFile;
        std::function<QCoro::Task<Document>(QByteArray, QString mimeType, std::stop_token)> importImage;
        PhotoMaker& photos;
        Clock clock;
        /// The folder of drafts from companions; nothing when there is no such group.
        std::optional<QString> inbox;
        /// Where drafts that wait for review are kept.
        QString reviewFolder;
    };

    explicit ImportCoordinator(Services services, QObject* parent = nullptr);
    ~ImportCoordinator() override;

    /// The progress text while an import runs, the latest one's when several do; empty when idle.
    QString activity() const;
    const std::optional<Failure>& failure() const { return m_failure; }
    /// The recipe that the window is to open now; the window takes it with takeOpenedRecipe().
    RecipePtr openedRecipe() const { return m_opened; }
    const std::optional<RecipeDraft>& draftToReview() const { return m_draftToReview; }
    QString reviewNotice() const { return m_reviewNotice; }
    /// How many drafts wait behind the one under review.
    int waitingDrafts() const;

    RecipePtr takeOpenedRecipe();
    void clearFailure();
    /// The review ended without saving: the draft is forgotten and the next waiting one, if any, comes up.
    void clearDraftToReview();
    /// The review ended with this draft: it becomes a recipe, and the next waiting draft comes up. What was
    /// kept for review is dropped only once the recipe is durable.
    RecipePtr saveReviewed(const RecipeDraft& draft);
    /// Keeps what has been edited so far, so that it is offered again after a crash.
    void keepReviewed(const RecipeDraft& draft);
    /// Opens the review sheet on an empty draft for an address that could not be imported.
    void addManually(const std::optional<QUrl>& address);

    QCoro::Task<void> importPage(QUrl url);
    /// The decision for a draft from the web: open what is there already, save it, or have it reviewed.
    /// `whenSafe` is called once the draft cannot be lost any more.
    void accept(const RecipeDraft& draft, const std::function<void()>& whenSafe = {});
    QCoro::Task<void> importDocument(QString path);
    QCoro::Task<void> importDocument(QByteArray data, QString mimeType);
    /// An address opened from outside: a file, one of our links; anything else is ignored.
    void handle(const QUrl& url);
    enum class Unreadable {
        /// What is no draft is put aside.
        Reject,
        /// It stays for the next time: it may be in the middle of being written.
        Leave,
    };
    /// Takes what companions left in the inbox. A call during another one makes that look once more.
    QCoro::Task<void> drainInbox(Unreadable unreadable = Unreadable::Reject);
    /// Stops the import whose activity text is shown; nothing of it is kept.
    void cancel();

    static QString webNotice();
    static QString fileNotice();

Q_SIGNALS:
    void activityChanged();
    void failureChanged();
    void openedRecipeChanged();
    void draftToReviewChanged();
    void waitingDraftsChanged();

private:
    struct Running;
    class Activity;

    RecipePtr insert(const RecipeDraft& draft, const std::function<void()>& whenSafe);
    void open(RecipePtr recipe);
    void review(const RecipeDraft& draft, const QString& notice, const std::function<void()>& whenSafe = {});
    void showNextReview();
    void fail(const std::exception_ptr& error, const std::optional<QUrl>& address);
    QCoro::Task<void> finishDocument(const Activity& activity, QCoro::Task<Document>& import);
    /// Replaces foreign photo bytes by a photo made of them.
    static QCoro::Task<RecipeDraft> withSafePhoto(PhotoMaker& photos, RecipeDraft draft);
    QCoro::Task<void> takeFromInbox(QString file, Unreadable unreadable);
    QCoro::Task<void> acceptFromOutside(RecipeDraft draft, std::function<void()> whenSafe);
    QCoro::Task<void> reviewFromOutside(RecipeDraft draft);

    Services m_services;
    std::optional<Failure> m_failure;
    RecipePtr m_opened;
    std::optional<RecipeDraft> m_draftToReview;
    QString m_reviewNotice;
    ReviewQueue m_queue;
    QList<std::shared_ptr<Running>> m_running;
    /// Files of the inbox that were taken and are still there, with their times: they go when what became of
    /// them is durable.
    QHash<QString, QDateTime> m_taken;
    bool m_isDraining = false;
    bool m_isInboxChanged = false;
};

} // namespace ovrin
