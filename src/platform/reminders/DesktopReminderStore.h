#pragma once

#include "reminders/ReminderStore.h"

#include <chrono>
#include <memory>

namespace ovrin {

/// The task lists of Evolution Data Server: what the desktop's own task applications show, and what CalDAV
/// accounts sync. Each operation ends within the time limit, with an error when the service has not answered.
/// Use it on one worker thread: made, called and destroyed there. One for the life of the process: the
/// service's library shares its registry of accounts among all who ask for it, and hands an emptied one to
/// who asks while the last user is letting it go.
class DesktopReminderStore : public ReminderStore
{
public:
    /// `sandboxMark` is the file by which a program knows that it runs in a sandbox: in one the service is
    /// not absent but withheld.
    explicit DesktopReminderStore(std::chrono::milliseconds timeLimit = std::chrono::seconds(15),
                                  QString sandboxMark = QStringLiteral("/.flatpak-info"));
    ~DesktopReminderStore() override;

    /// Has to come first, and comes again before each use: it also hears what has changed since.
    bool requestAccess() override;
    std::vector<List> lists() override;
    std::optional<Source> defaultSource() override;
    std::vector<Source> sources() override;
    List createList(const QString& title, const Source& source) override;
    void add(const List& list, const std::vector<Reminder>& reminders) override;

private:
    struct Session;
    Session& session();

    std::chrono::milliseconds m_timeLimit;
    QString m_sandboxMark;
    std::unique_ptr<Session> m_session;
};

} // namespace ovrin
