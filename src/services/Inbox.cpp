#include "services/Inbox.h"

#include "import/DraftFolder.h"

#include <QtCore/QStandardPaths>

namespace ovrin {

std::optional<QString> inboxFolder()
{
    const QString group = QStringLiteral(OVRIN_APP_GROUP);
    if (group.isEmpty())
        return std::nullopt;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u'/' + group +
           QStringLiteral("/Inbox");
}

std::optional<QString> leaveInInbox(const RecipeDraft& draft, Instant now)
{
    const auto folder = inboxFolder();
    return folder ? DraftFolder(*folder).add(draft, now) : std::nullopt;
}

QString inboxFailure()
{
    const auto folder = inboxFolder();
    return folder ? QStringLiteral("The recipe could not be written to Ovrin’s inbox, “%1”.").arg(*folder)
                  : QStringLiteral("This Ovrin was built without an inbox.");
}

} // namespace ovrin
