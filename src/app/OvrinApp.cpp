#include "app/OvrinApp.h"

#include "app/Groceries.h"
#include "app/WindowPlace.h"
#include "platform/inhibit/DisplayAwake.h"
#include "platform/notifications/DesktopNotificationCenter.h"
#include "platform/reader/DocumentReader.h"
#include "services/Inbox.h"
#include "ui/Views.h"

#include <QtCore/QStandardPaths>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickWindow>

namespace ovrin {

OvrinApp::Folders OvrinApp::Folders::usual(const QString& library)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return {QCoreApplication::applicationDirPath(),
            library.isEmpty() ? data + QStringLiteral("/ovrin") : library, inboxFolder()};
}

OvrinApp::OvrinApp(std::unique_ptr<RecipeStore> store, const Folders& folders)
    : m_store(std::move(store))
    , m_pages(folders.program)
    , m_documents(folders.program)
    , m_importer(importServices(folders))
    , m_notifications(std::make_unique<DesktopNotificationCenter>(DesktopNotificationCenter::surroundings(
          findHelper(folders.program, QStringLiteral("ovrin-notifier")))))
    , m_timers([] { return QDateTime::currentDateTimeUtc(); }, *m_notifications)
    , m_photos(*m_store)
    , m_model(windowServices())
    , m_cookWindows({m_engine, *m_store, m_photos, m_timers,
                     [] { return std::make_shared<DisplayAwake>(tr("Cooking")); }})
{
    m_notifications->setDelegate(&m_presenter);
    prepareViews(m_engine, m_photos, m_draftPhotos);
    // Who looks elsewhere hears the note's own sound alone.
    connect(&m_timers, &CookTimers::ranOut, this, [this] {
        if (QGuiApplication::applicationState() == Qt::ApplicationActive)
            m_chime.ring();
    });
    connect(&m_timers, &CookTimers::recipeWanted, this, [this](const CookTimers::Running& timer) {
        m_model.openRecipe(timer.recipeId.toString(QUuid::WithoutBraces));
    });
}

OvrinApp::~OvrinApp() = default;

ImportCoordinator::Services OvrinApp::importServices(const Folders& folders)
{
    return {*m_store,
            [this](QUrl url, std::stop_token stop) {
                return m_pages.importer().fetchDraft(std::move(url), std::move(stop));
            },
            [this](QString path, std::stop_token stop) {
                return m_documents.importer().draft(std::move(path), std::move(stop));
            },
            [this](QByteArray bytes, QString type, std::stop_token stop) {
                return m_documents.importer().draft(std::move(bytes), std::move(type), std::move(stop));
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
            m_appearance,
            DraftKeeper(m_store->folder() + QStringLiteral("/Unsaved.json")),
            QLocale(),
            &m_timers,
            [this](QUuid recipe) { m_cookWindows.open(recipe); },
            addToGroceries,
            true,
            false};
}

bool OvrinApp::openWindow()
{
    QQmlComponent component(&m_engine, mainWindowUrl());
    if (!component.isReady()) {
        qCritical("%s", qPrintable(component.errorString()));
        return false;
    }
    m_window.reset(
        component.createWithInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&m_model)}}));
    auto* const window = qobject_cast<QQuickWindow*>(m_window.get());
    if (!window)
        return false;
    m_place = std::make_unique<WindowPlace>(*window, m_settings, QStringLiteral("libraryWindow"));
    window->show();
    return true;
}

void OvrinApp::handle(const QUrl& url)
{
    m_model.handle(url);
    if (auto* const window = qobject_cast<QQuickWindow*>(m_window.get())) {
        window->raise();
        window->requestActivate();
    }
}

} // namespace ovrin
