#pragma once

#include "app/Groceries.h"
#include "app/WindowFrame.h"
#include "cooking/CookTimers.h"
#include "cooking/NotificationPresenter.h"
#include "import/ImportCoordinator.h"
#include "import/InboxWatch.h"
#include "platform/desktop/QtDesktopActions.h"
#include "platform/desktop/QtPasteboard.h"
#include "platform/desktop/SettingsFlags.h"
#include "platform/instance/StartRequest.h"
#include "platform/sound/DesktopChime.h"
#include "services/FileImport.h"
#include "services/PageImport.h"
#include "ui/cook/CookWindows.h"
#include "ui/images/DraftPhotos.h"
#include "ui/images/RecipePhotos.h"
#include "ui/library/LibraryWindow.h"

QT_BEGIN_NAMESPACE
class QWindow;
QT_END_NAMESPACE

namespace ovrin {

/// The running application: makes the services, hands them over, opens the library window.
class OvrinApp : public QObject
{
    Q_OBJECT

public:
    struct Folders
    {
        /// Where this program lies; its helpers are found from there.
        QString program;
        /// `Library.sqlite` and what belongs to it.
        QString library;
        /// The drafts of companions; nothing without a group.
        std::optional<QString> inbox;

        static Folders usual(const QString& library);
    };

    /// The folder of the library; the usual one unless another is wanted.
    static QString libraryFolder(const QString& wanted);

    /// `store` is open; `frame` is the library's window, open or not yet, and outlives this. Made once, on
    /// the main thread.
    OvrinApp(std::unique_ptr<RecipeStore> store, const Folders& folders, WindowFrame& frame);
    ~OvrinApp() override;

    /// False when the window cannot be made, which only a broken installation brings about.
    bool openWindow();
    bool hasWindow() const { return m_frame.window() != nullptr; }
    /// Something to tell the user once the window stands.
    void say(const QString& message) { m_model.say(message); }
    /// Raises the library window, which is shown again when it was closed, as while only a cook window is
    /// open.
    void bringForward(const ActivationToken& token);
    /// Opens the addresses and does the action that a start asks for, in the window that there is.
    void serve(const StartRequest& request);

private:
    void open(const QUrl& address);
    ImportCoordinator::Services importServices(const Folders& folders);
    LibraryWindow::Services windowServices();
    void watchInbox(QWindow& window);

    WindowFrame& m_frame;
    std::unique_ptr<RecipeStore> m_store;
    PageImport m_pages;
    DocumentImport m_documents;
    FileImport m_files;
    ImportCoordinator m_importer;
    /// None without an inbox.
    std::unique_ptr<InboxWatch> m_inbox;
    NotificationPresenter m_presenter;
    std::unique_ptr<UserNotificationCenter> m_notifications;
    CookTimers m_timers;
    DesktopChime m_chime;
    Groceries m_groceries;

    SettingsFlags m_flags;
    QtPasteboard m_pasteboard;
    QtDesktopActions m_desktop;
    RecipePhotos m_photos;
    DraftPhotos m_draftPhotos;
    LibraryWindow m_model;
    CookWindows m_cookWindows;
};

} // namespace ovrin
