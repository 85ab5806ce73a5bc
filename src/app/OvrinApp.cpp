#include "app/OvrinApp.h"

#include "platform/inhibit/DisplayAwake.h"
#include "platform/instance/WindowActivation.h"
#include "platform/notifications/DesktopNotificationCenter.h"
#include "platform/reader/DocumentReader.h"
#include "services/Inbox.h"
#include "ui/Views.h"

#include <QtCore/QStandardPaths>
#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickWindow>

namespace ovrin {

namespace {
/// More than anyone opens on purpose: a folder opened by mistake must not start a thousand imports.
constexpr qsizetype mostOpened = 50;

/// `refusal` is the importer's own: it may be gone when the import ends.
QCoro::Task<ImportCoordinator::Document> forReview(QCoro::Task<DocumentRecipeImporter::Imported> import,
                                                   QString refusal)
{
    const DocumentRecipeImporter::Imported imported = co_await import;
    ImportCoordinator::Document document{imported.draft, DocumentImport::notice(imported, refusal)};
    co_return document;
}

} // namespace

OvrinApp::Folders OvrinApp::Folders::usual(const QString& library)
{
    return {QCoreApplication::applicationDirPath(), libraryFolder(library), inboxFolder()};
}

QString OvrinApp::libraryFolder(const QString& wanted)
{
    return wanted.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                                  QStringLiteral("/ovrin")
                            : wanted;
}

OvrinApp::OvrinApp(std::unique_ptr<RecipeStore> store, const Folders& folders, WindowFrame& frame)
    : m_frame(frame)
    , m_store(std::move(store))
    , m_pages(folders.program)
    , m_documents(folders.program, DocumentImport::languageModelIn(frame.settings()))
    , m_files(m_pages, m_documents)
    , m_importer(importServices(folders))
    , m_inbox(folders.inbox ? std::make_unique<InboxWatch>(*folders.inbox) : nullptr)
    , m_notifications(std::make_unique<DesktopNotificationCenter>(DesktopNotificationCenter::surroundings(
          findHelper(folders.program, QStringLiteral("ovrin-notifier")))))
    , m_timers([] { return QDateTime::currentDateTimeUtc(); }, *m_notifications)
    , m_flags(frame.settings())
    , m_photos(*m_store)
    , m_model(windowServices())
    , m_cookWindows({frame.engine(), *m_store, m_photos, m_timers,
                     [] { return std::make_shared<DisplayAwake>(tr("Cooking")); }})
{
    m_notifications->setDelegate(&m_presenter);
    prepareViews(frame.engine(), m_photos, m_draftPhotos);
    // Who looks elsewhere hears the note's own sound alone.
    connect(&m_timers, &CookTimers::ranOut, this, [this] {
        if (QGuiApplication::applicationState() == Qt::ApplicationActive)
            m_chime.ring();
    });
    connect(&m_timers, &CookTimers::recipeWanted, this, [this](const CookTimers::Running& timer) {
        m_model.openRecipe(timer.recipeId.toString(QUuid::WithoutBraces));
        bringForward({});
    });
}

OvrinApp::~OvrinApp()
{
    // Its window shows what is about to go.
    m_frame.destroy();
}

ImportCoordinator::Services OvrinApp::importServices(const Folders& folders)
{
    return {*m_store,
            [this](QUrl url, std::stop_token stop) {
                return m_pages.importer().fetchDraft(std::move(url), std::move(stop));
            },
            [this](QString path, std::stop_token stop) {
                const bool isDocument = DocumentRecipeImporter::supports(path);
                return forReview(m_files.import(std::move(path), std::move(stop)),
                                 isDocument ? m_documents.refusal() : QString());
            },
            [this](QByteArray bytes, QString type, std::stop_token stop) {
                return forReview(
                    m_documents.importer().import(std::move(bytes), std::move(type), std::move(stop)),
                    m_documents.refusal());
            },
            m_pages.photos(),
            systemNow,
            folders.inbox,
            folders.library + QStringLiteral("/Review")};
}

LibraryWindow::Services OvrinApp::windowServices()
{
    return {*m_store,
            m_importer,
            m_pages.photos(),
            m_photos,
            m_draftPhotos,
            m_pasteboard,
            m_desktop,
            m_flags,
            DraftKeeper(m_store->folder() + QStringLiteral("/Unsaved.json")),
            QLocale(),
            &m_timers,
            [this](QUuid recipe) { m_cookWindows.open(recipe); },
            [this](QStringList lines, QString title) {
                return m_groceries.add(std::move(lines), std::move(title));
            },
            true,
            false};
}

bool OvrinApp::openWindow()
{
    if (!m_frame.open())
        return false;
    m_frame.fill(m_model);
    watchInbox(*m_frame.window());
    return true;
}

void OvrinApp::watchInbox(QWindow& window)
{
    m_importer.drainInbox();
    if (!m_inbox)
        return;
    connect(&window, &QWindow::activeChanged, m_inbox.get(), [this, &window] {
        m_inbox->setActive(window.isActive());
        // After the watch has begun: what comes in between is then seen by one of the two.
        if (window.isActive())
            m_importer.drainInbox();
    });
    connect(m_inbox.get(), &InboxWatch::changed, this,
            [this] { m_importer.drainInbox(ImportCoordinator::Unreadable::Leave); });
}

void OvrinApp::bringForward(const ActivationToken& token)
{
    if (QQuickWindow* const window = m_frame.window())
        ovrin::bringForward(*window, token);
}

void OvrinApp::open(const QUrl& address)
{
    // A page typed after the program's name is meant to be imported as much as one in a link of ours.
    if (address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https"))
        m_importer.importPage(address);
    else
        m_model.handle(address);
}

void OvrinApp::serve(const StartRequest& request)
{
    for (const QUrl& address : request.addresses.first(qMin(request.addresses.size(), mostOpened)))
        open(address);
    if (request.action == QStringLiteral("new-recipe"))
        m_model.createRecipe();
    else if (request.action == QStringLiteral("import-from-web"))
        Q_EMIT m_model.importSheetWanted();
}

} // namespace ovrin
