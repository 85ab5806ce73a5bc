#pragma once

#include "reminders/ReminderStore.h"

#include <chrono>
#include <memory>

namespace ovrin {

/// The task lists of Evolution Data Server: what the desktop's own task applications show, and what CalDAV
/// accounts sync. Each operation ends within the time limit, with an error when the service has not answered.
/// Use it on one worker thread: made, called and destroyed there.
class DesktopReminderStore : public ReminderStore
{
public:
    /// `sandboxMark` is the file by which a program knows that it runs in a sandbox: in one the service is
    /// not absent but withheld.
    explicit DesktopReminderStore(std::chrono::milliseconds timeLimit = std::chrono::seconds(15),
                                  QString sandboxMark = QStringLiteral("/.flatpak-info"));
    ~DesktopReminderStore() override;

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
