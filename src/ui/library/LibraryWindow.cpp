#include "ui/library/LibraryWindow.h"

#include "cooking/CookTimers.h"
#include "model/SampleRecipes.h"
#include "reminders/TaskCalendar.h"
#include "ui/desktop/DesktopActions.h"
#include "ui/desktop/Pasteboard.h"
#include "ui/images/RecipePhotos.h"
#include "ui/recipe/DirectionText.h"

#include <QtCore/QDir>
#include <QtCore/QPointer>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrlQuery>

namespace ovrin {

namespace {
/// More than anyone drops on purpose: a page of links dragged by mistake must not start a thousand imports.
constexpr qsizetype mostDropped = 50;
constexpr qsizetype longestText = 64L * 1024;
} // namespace

LibraryWindow::LibraryWindow(Services services, QObject* parent)
    : QObject(parent)
    , m_services(std::move(services))
    , m_library(m_services.store, m_services.photos)
    , m_recipe(m_services.store, m_services.photos, m_services.locale)
    , m_editor(m_services.photoMaker, m_services.pasteboard, m_services.draftPhotos)
{
    ImportCoordinator& importer = m_services.importer;
    connect(&importer, &ImportCoordinator::activityChanged, this, &LibraryWindow::activityChanged);
    connect(&importer, &ImportCoordinator::failureChanged, this, &LibraryWindow::failureChanged);
    connect(&importer, &ImportCoordinator::waitingDraftsChanged, this, &LibraryWindow::waitingDraftsChanged);
    connect(&importer, &ImportCoordinator::openedRecipeChanged, this, &LibraryWindow::openImported);
    connect(&importer, &ImportCoordinator::draftToReviewChanged, this, &LibraryWindow::review);
    connect(&m_editor, &EditorModel::saved, this, &LibraryWindow::onSaved);
    connect(&m_editor, &EditorModel::cancelled, this, &LibraryWindow::onCancelled);
    connect(&m_editor, &EditorModel::worthKeeping, this, &LibraryWindow::onWorthKeeping);
    connect(&m_recipe, &RecipeViewModel::gone, this, &LibraryWindow::onGone);
    connect(&m_recipe, &RecipeViewModel::shown, this, [this] { sayOfGroceries({}); });
    connect(&m_services.store, &RecipeStore::saveFailed, this,
            [this](const RecipePtr&, const QString& text) { say(text); });
    connect(&m_services.store, &RecipeStore::readFailed, this, &LibraryWindow::say);
}

LibraryWindow::~LibraryWindow()
{
    // A window that goes away with unsaved words, as at the end of a session, leaves them to be offered
    // again.
    m_editor.keepNow();
}

QAbstractItemModel* LibraryWindow::timers() const
{
    return m_services.timers;
}

QString LibraryWindow::failure() const
{
    const auto& failure = m_services.importer.failure();
    return failure ? failure->message : QString();
}

QString LibraryWindow::deletedTitle() const
{
    return m_isDeletionShown && !m_deleted.isEmpty() ? m_deleted.last()->title() : QString();
}

RecipePtr LibraryWindow::find(const QString& recipeId) const
{
    return m_services.store.find(QUuid(recipeId));
}

void LibraryWindow::appear()
{
    SampleRecipes::seedIfNeeded(m_services.store, m_services.flags);
    if (const auto kept = m_services.drafts.kept()) {
        m_edited = kept->recipe ? m_services.store.find(*kept->recipe) : nullptr;
        const RecipeDraft original = m_edited ? m_edited->draft() : RecipeDraft();
        edit(m_edited ? Editing::Edit : Editing::New,
             {kept->heading, tr("Ovrin was closed before this was saved. Save it now, or cancel to drop it."),
              kept->draft, original});
    } else {
        review();
    }
    openImported();
}

void LibraryWindow::becomeActive()
{
    m_services.importer.drainInbox();
    // What was added two weeks ago is recent no longer.
    m_library.refresh();
}

void LibraryWindow::openRecipe(const QString& recipeId)
{
    if (const RecipePtr recipe = find(recipeId))
        m_recipe.show(recipe);
}

void LibraryWindow::goBack()
{
    m_recipe.show(nullptr);
}

void LibraryWindow::toggleSaved(const QString& recipeId)
{
    if (const RecipePtr recipe = find(recipeId))
        recipe->setSaved(!recipe->isSaved());
}

void LibraryWindow::openPage(const QString& recipeId)
{
    const RecipePtr recipe = find(recipeId);
    const auto page = recipe ? recipe->sourceURL() : std::nullopt;
    // Anything else than a web page, a file or a program's own scheme, is not ours to start from a recipe's
    // data.
    if (!page || !ImportSheetModel::webAddress(page->toString()) || !m_services.desktop.open(*page))
        say(tr("The original page couldn’t be opened."));
}

void LibraryWindow::deleteRecipe(const QString& recipeId)
{
    const RecipePtr recipe = find(recipeId);
    if (!recipe)
        return;
    m_deleted.append(recipe);
    m_isDeletionShown = true;
    m_services.store.remove(recipe);
    Q_EMIT deletedChanged();
}

void LibraryWindow::undoDelete()
{
    if (m_deleted.isEmpty())
        return;
    m_services.store.insert(m_deleted.takeLast());
    m_isDeletionShown = false;
    Q_EMIT deletedChanged();
}

void LibraryWindow::dismissDeleted()
{
    m_isDeletionShown = false;
    Q_EMIT deletedChanged();
}

void LibraryWindow::onGone(const RecipePtr& recipe)
{
    // Deleted here, it is in the undo list; otherwise another program took it, and the reader must be told
    // why the page went away.
    if (!m_deleted.contains(recipe))
        say(tr("“%1” was deleted outside of this window.").arg(recipe->title()));
}

void LibraryWindow::edit(Editing editing, const EditorSession& session)
{
    m_editing = editing;
    m_editor.open(session);
    Q_EMIT reviewingChanged();
}

void LibraryWindow::createRecipe()
{
    if (m_editing == Editing::Nothing)
        edit(Editing::New, {tr("New Recipe"), {}, {}});
}

void LibraryWindow::editRecipe()
{
    if (m_editing != Editing::Nothing || !m_recipe.recipe())
        return;
    m_edited = m_recipe.recipe();
    edit(Editing::Edit, {tr("Edit Recipe"), {}, m_edited->draft()});
}

void LibraryWindow::review()
{
    // A draft never pushes aside what is being written: it comes up when the sheet is free.
    const auto& draft = m_services.importer.draftToReview();
    if (draft && m_editing == Editing::Nothing)
        edit(Editing::Review, {tr("Review Import"), m_services.importer.reviewNotice(), *draft});
}

void LibraryWindow::onSaved(const RecipeDraft& draft)
{
    const Editing editing = std::exchange(m_editing, Editing::Nothing);
    const RecipePtr edited = std::exchange(m_edited, nullptr);
    if (editing == Editing::Review) {
        m_services.importer.saveReviewed(draft);
    } else if (editing == Editing::Edit && edited) {
        edited->apply(draft);
        // Deleted while it was being edited: what was written is worth more than the deletion.
        if (edited->isGone())
            m_services.store.insert(edited);
    } else {
        m_services.store.insert(std::make_shared<Recipe>(draft, m_services.store.now()));
    }
    m_services.drafts.forget();
    Q_EMIT reviewingChanged();
    review();
}

void LibraryWindow::onCancelled()
{
    const Editing editing = std::exchange(m_editing, Editing::Nothing);
    m_edited = nullptr;
    if (editing == Editing::Review)
        m_services.importer.clearDraftToReview();
    m_services.drafts.forget();
    Q_EMIT reviewingChanged();
    review();
}

void LibraryWindow::onWorthKeeping(const RecipeDraft& draft)
{
    if (m_editing == Editing::Review)
        m_services.importer.keepReviewed(draft);
    else
        m_services.drafts.keep({m_editor.heading(), m_editor.notice(),
                                m_edited ? std::optional(m_edited->id()) : std::nullopt, draft});
}

void LibraryWindow::prepareImportSheet()
{
    m_importSheet.open(m_services.pasteboard.text());
}

void LibraryWindow::startImport()
{
    if (const auto url = m_importSheet.url())
        importAddress(*url);
}

void LibraryWindow::importAddress(const QUrl& url)
{
    m_services.importer.importPage(url);
}

void LibraryWindow::importFile(const QUrl& file)
{
    m_services.importer.importDocument(file.toLocalFile());
}

void LibraryWindow::cancelImport()
{
    m_services.importer.cancel();
}

void LibraryWindow::openImported()
{
    if (const RecipePtr recipe = m_services.importer.takeOpenedRecipe())
        m_recipe.show(recipe);
}

void LibraryWindow::addManually()
{
    const auto failure = m_services.importer.failure();
    m_services.importer.clearFailure();
    m_services.importer.addManually(failure ? failure->address : std::nullopt);
}

void LibraryWindow::dismissFailure()
{
    m_services.importer.clearFailure();
}

bool LibraryWindow::drop(const QList<QUrl>& urls, const QString& text)
{
    QList<QUrl> wanted;
    for (const QUrl& url : urls.first(qMin(urls.size(), mostDropped)))
        if (url.isLocalFile() || ImportSheetModel::fullWebAddress(url.toString()))
            wanted.append(url);
    if (wanted.isEmpty())
        for (const QString& line : text.left(longestText).split(u'\n', Qt::SkipEmptyParts))
            if (const auto url = ImportSheetModel::fullWebAddress(line.trimmed());
                url && wanted.size() < mostDropped)
                wanted.append(*url);
    for (const QUrl& url : wanted)
        url.isLocalFile() ? importFile(url) : importAddress(url);
    return !wanted.isEmpty();
}

bool LibraryWindow::paste()
{
    const QString text = m_services.pasteboard.text().trimmed();
    QList<QUrl> files;
    for (const QString& line : text.left(longestText).split(u'\n', Qt::SkipEmptyParts))
        if (const QUrl url(line.trimmed()); url.isLocalFile())
            files.append(url);
    if (drop(files, text))
        return true;
    const std::optional<Pasteboard::Picture> picture = m_services.pasteboard.picture();
    if (picture)
        m_services.importer.importDocument(picture->bytes, picture->mimeType);
    return picture.has_value();
}

void LibraryWindow::cook()
{
    if (m_services.cook && m_recipe.recipe())
        m_services.cook(m_recipe.recipe()->id());
}

void LibraryWindow::addGroceries()
{
    if (m_services.addGroceries && m_recipe.recipe() && !m_isAddingGroceries)
        sendGroceries();
}

QCoro::Task<void> LibraryWindow::sendGroceries()
{
    const QPointer<LibraryWindow> self(this);
    const RecipePtr recipe = m_recipe.recipe();
    setAddingGroceries(true);
    const QString message = co_await m_services.addGroceries(m_recipe.groceryLines(), recipe->title());
    if (!self)
        co_return;
    setAddingGroceries(false);
    if (m_recipe.recipe() == recipe)
        sayOfGroceries(message);
}

void LibraryWindow::setAddingGroceries(bool isAdding)
{
    m_isAddingGroceries = isAdding;
    Q_EMIT isAddingGroceriesChanged();
}

void LibraryWindow::sayOfGroceries(const QString& message)
{
    m_groceryMessage = message;
    Q_EMIT groceryMessageChanged();
}

QUrl LibraryWindow::groceryFile() const
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return QUrl::fromLocalFile(folder.filePath(TaskCalendar::fileName(m_recipe.title())));
}

void LibraryWindow::saveGroceries(const QUrl& file)
{
    const QString path = file.toLocalFile();
    const QStringList lines = m_recipe.groceryLines();
    const bool isSaved =
        TaskCalendar::save(path, lines, m_recipe.title(), toDateTime(m_services.store.now()));
    const QString name = QFileInfo(path).fileName();
    // In passing, since the menu is reached where the ingredients are out of sight.
    say(isSaved ? tr("Saved %1 items to “%2”.").arg(QString::number(lines.size()), name)
                : tr("The grocery list couldn’t be saved to “%1”.").arg(name));
}

void LibraryWindow::copyRecipe()
{
    m_services.pasteboard.setText(m_recipe.shareText());
    say(tr("The recipe was copied."));
}

void LibraryWindow::mailRecipe()
{
    QUrl url(QStringLiteral("mailto:"));
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("subject"),
                       QString::fromLatin1(QUrl::toPercentEncoding(m_recipe.title())));
    query.addQueryItem(QStringLiteral("body"),
                       QString::fromLatin1(QUrl::toPercentEncoding(m_recipe.shareText())));
    url.setQuery(query);
    if (!m_services.desktop.open(url))
        say(tr("No mail program could be opened."));
}

void LibraryWindow::activateLink(const QString& address)
{
    if (const int row = ingredientOf(address); row >= 0) {
        m_recipe.showIngredient(row);
        Q_EMIT ingredientWanted(row);
    } else if (m_services.timers && m_recipe.recipe())
        m_services.timers->openLink(QUrl(address), m_recipe.title(), m_recipe.recipe()->id());
}

void LibraryWindow::say(const QString& message)
{
    m_message = message;
    Q_EMIT messageChanged();
}

} // namespace ovrin
