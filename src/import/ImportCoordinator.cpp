#include "import/ImportCoordinator.h"

#include "import/ImportLink.h"
#include "import/error/RecipeImportError.h"

#include <QtCore/QFileInfo>
#include <QtCore/QPointer>

#include <algorithm>

namespace ovrin {

struct ImportCoordinator::Running
{
    QString text;
    std::stop_source stop;
};

/// Shows an import's text for as long as it runs. It outlives the coordinator when the import does.
class ImportCoordinator::Activity
{
public:
    Activity(ImportCoordinator& coordinator, const QString& text)
        : m_coordinator(&coordinator)
        , m_running(std::make_shared<Running>(Running{text, {}}))
    {
        coordinator.m_running.append(m_running);
        Q_EMIT coordinator.activityChanged();
    }
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;
    ~Activity()
    {
        if (m_coordinator && m_coordinator->m_running.removeOne(m_running))
            Q_EMIT m_coordinator->activityChanged();
    }

    std::stop_token token() const { return m_running->stop.get_token(); }
    /// Whether the outcome may still be told: the import was not cancelled and someone is there to be told.
    bool isWanted() const { return m_coordinator && !m_running->stop.stop_requested(); }

private:
    QPointer<ImportCoordinator> m_coordinator;
    std::shared_ptr<Running> m_running;
};

ImportCoordinator::ImportCoordinator(Services services, QObject* parent)
    : QObject(parent)
    , m_services(std::move(services))
    , m_queue(m_services.reviewFolder, m_services.clock,
              [](const RecipeDraft& draft) { return draft.sourceURL ? webNotice() : fileNotice(); })
{
    showNextReview();
}

ImportCoordinator::~ImportCoordinator()
{
    for (const auto& running : std::as_const(m_running))
        running->stop.request_stop();
}

QString ImportCoordinator::webNotice()
{
    return tr("This page didn’t include a complete recipe, so fill in what’s missing.");
}

QString ImportCoordinator::fileNotice()
{
    return tr("Recognized from your file. Check the ingredients and steps, then save.");
}

QString ImportCoordinator::activity() const
{
    return m_running.isEmpty() ? QString() : m_running.last()->text;
}

int ImportCoordinator::waitingDrafts() const
{
    return int(m_queue.size()) - (m_draftToReview && !m_queue.isEmpty() ? 1 : 0);
}

RecipePtr ImportCoordinator::takeOpenedRecipe()
{
    return std::exchange(m_opened, nullptr);
}

void ImportCoordinator::clearFailure()
{
    m_failure.reset();
    Q_EMIT failureChanged();
}

void ImportCoordinator::cancel()
{
    if (m_running.isEmpty())
        return;
    const auto running = m_running.takeLast();
    running->stop.request_stop();
    Q_EMIT activityChanged();
}

RecipePtr ImportCoordinator::insert(const RecipeDraft& draft, const std::function<void()>& whenSafe)
{
    auto recipe = std::make_shared<Recipe>(draft, m_services.clock());
    auto saved = m_services.store.insert(recipe);
    if (whenSafe) {
        saved.then([whenSafe](const SaveResult& result) {
            if (result.isSaved())
                whenSafe();
        });
    }
    return recipe;
}

void ImportCoordinator::open(RecipePtr recipe)
{
    m_opened = std::move(recipe);
    Q_EMIT openedRecipeChanged();
}

void ImportCoordinator::review(const RecipeDraft& draft, const QString& notice,
                               const std::function<void()>& whenSafe)
{
    if (m_queue.add(draft, notice) && whenSafe)
        whenSafe();
    if (m_draftToReview)
        Q_EMIT waitingDraftsChanged();
    else
        showNextReview();
}

void ImportCoordinator::showNextReview()
{
    if (m_queue.isEmpty()) {
        m_draftToReview.reset();
        m_reviewNotice.clear();
    } else {
        m_draftToReview = m_queue.first().draft;
        m_reviewNotice = m_queue.first().notice;
    }
    Q_EMIT draftToReviewChanged();
    Q_EMIT waitingDraftsChanged();
}

void ImportCoordinator::clearDraftToReview()
{
    if (!m_draftToReview)
        return;
    DraftFolder::remove(m_queue.takeFirst().file);
    showNextReview();
}

RecipePtr ImportCoordinator::saveReviewed(const RecipeDraft& draft)
{
    const QString file = m_queue.takeFirst().file;
    auto recipe = insert(draft, [file] { DraftFolder::remove(file); });
    showNextReview();
    return recipe;
}

void ImportCoordinator::keepReviewed(const RecipeDraft& draft)
{
    if (m_draftToReview)
        m_queue.replaceFirst(draft);
}

void ImportCoordinator::addManually(const std::optional<QUrl>& address)
{
    RecipeDraft draft;
    draft.sourceURL = address;
    review(draft, tr("Type or paste the recipe, and it will be laid out like any other."));
}

void ImportCoordinator::fail(const std::exception_ptr& error, const std::optional<QUrl>& address)
{
    const auto message = importErrorDescription(error);
    if (!message)
        return;
    m_failure = Failure{QUuid::createUuid(), *message, address};
    Q_EMIT failureChanged();
}

QCoro::Task<void> ImportCoordinator::importPage(QUrl url)
{
    if (auto recipe = m_services.store.existingRecipe(url)) {
        open(std::move(recipe));
        co_return;
    }
    const QString text =
        url.host().isEmpty() ? tr("Importing from the web…") : tr("Importing from %1…").arg(url.host());
    const Activity activity(*this, text);
    RecipeDraft draft;
    std::exception_ptr error;
    try {
        draft = co_await m_services.importPage(url, activity.token());
    } catch (...) {
        error = std::current_exception();
    }
    if (!activity.isWanted())
        co_return;
    if (error)
        fail(error, url);
    else
        accept(draft);
}

void ImportCoordinator::accept(const RecipeDraft& draft, const std::function<void()>& whenSafe)
{
    if (auto recipe = draft.sourceURL ? m_services.store.existingRecipe(*draft.sourceURL) : nullptr) {
        open(std::move(recipe));
        if (whenSafe)
            whenSafe();
    } else if (draft.isComplete()) {
        open(insert(draft, whenSafe));
    } else {
        review(draft, webNotice(), whenSafe);
    }
}

QCoro::Task<void> ImportCoordinator::finishDocument(const Activity& activity, QCoro::Task<Document>& import)
{
    Document document;
    std::exception_ptr error;
    try {
        document = co_await import;
    } catch (...) {
        error = std::current_exception();
    }
    if (!activity.isWanted())
        co_return;
    if (error)
        fail(error, {});
    else
        review(document.draft, document.notice.isEmpty() ? fileNotice() : document.notice);
}

QCoro::Task<void> ImportCoordinator::importDocument(QString path)
{
    const Activity activity(*this, tr("Reading %1…").arg(QFileInfo(path).fileName()));
    auto import = m_services.importFile(path, activity.token());
    co_await finishDocument(activity, import);
}

QCoro::Task<void> ImportCoordinator::importDocument(QByteArray data, QString mimeType)
{
    const Activity activity(*this, tr("Reading image…"));
    auto import = m_services.importImage(data, mimeType, activity.token());
    co_await finishDocument(activity, import);
}

QCoro::Task<RecipeDraft> ImportCoordinator::withSafePhoto(PhotoMaker& photos, RecipeDraft draft)
{
    // Bytes from outside never reach a decoder in this process: the reader makes a photo of its own from
    // them.
    if (draft.imageData) {
        const auto photo = co_await photos.photo(*std::exchange(draft.imageData, std::nullopt), {});
        if (photo)
            draft.imageData = photo->jpeg;
    }
    co_return draft;
}

QCoro::Task<void> ImportCoordinator::acceptFromOutside(RecipeDraft draft, std::function<void()> whenSafe)
{
    const QPointer<ImportCoordinator> self(this);
    draft = co_await withSafePhoto(m_services.photos, std::move(draft));
    if (!self)
        co_return;
    if (draft.sourceURL)
        accept(draft, whenSafe);
    else
        review(draft, fileNotice(), whenSafe);
}

QCoro::Task<void> ImportCoordinator::reviewFromOutside(RecipeDraft draft)
{
    const QPointer<ImportCoordinator> self(this);
    draft = co_await withSafePhoto(m_services.photos, std::move(draft));
    if (self)
        review(draft, fileNotice());
}

void ImportCoordinator::handle(const QUrl& url)
{
    if (url.isLocalFile()) {
        importDocument(url.toLocalFile());
    } else if (auto draft = ImportLink::draft(url)) {
        reviewFromOutside(*std::move(draft));
    } else if (const auto page = ImportLink::page(url)) {
        importPage(*page);
    } else if (ImportLink::isOurs(url)) {
        drainInbox();
    }
}

QCoro::Task<void> ImportCoordinator::takeFromInbox(QString file, Unreadable unreadable)
{
    const QDateTime time = QFileInfo(file).lastModified();
    if (m_taken.value(file) == time)
        co_return;
    auto draft = DraftFolder::read(file);
    if (draft) {
        m_taken.insert(file, time);
        // Named, since g++ 12 destroys a temporary of an awaited call's arguments twice.
        const std::function<void()> remove = [self = QPointer(this), file, time] {
            // Written again meanwhile: that is another draft, to be taken next.
            if (QFileInfo(file).lastModified() == time && DraftFolder::remove(file) && self)
                self->m_taken.remove(file);
        };
        co_await acceptFromOutside(*std::move(draft), remove);
    } else if (unreadable == Unreadable::Reject) {
        DraftFolder(*m_services.inbox).reject(file);
    }
}

QCoro::Task<void> ImportCoordinator::drainInbox(Unreadable unreadable)
{
    m_isInboxChanged = true;
    // Taking a draft suspends while its photo is made.
    if (!m_services.inbox || m_isDraining)
        co_return;
    const QPointer<ImportCoordinator> self(this);
    const DraftFolder inbox(*m_services.inbox);
    m_isDraining = true;
    while (std::exchange(m_isInboxChanged, false)) {
        for (const QString& file : inbox.files(DraftFolder::Order::ByAge)) {
            co_await takeFromInbox(file, unreadable);
            if (!self)
                co_return;
        }
    }
    m_isDraining = false;
}

} // namespace ovrin
