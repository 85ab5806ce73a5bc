#pragma once

#include "import/DraftFolder.h"
#include "support/ProgramTest.h"

#include <QtCore/QDir>

namespace ovrin {

/// Runs a companion with an inbox of the test's own.
class InboxTest : public ProgramTest
{
protected:
    /// The application group's folder.
    QString group() const { return home.filePath(QStringLiteral(OVRIN_APP_GROUP)); }

    QString inboxPath() const { return group() + QStringLiteral("/Inbox"); }

    /// What the application would find, in the order in which it was left there.
    QList<RecipeDraft> inbox() const
    {
        QList<RecipeDraft> drafts;
        for (const QString& file : DraftFolder(inboxPath()).files(DraftFolder::Order::ByName))
            drafts << DraftFolder::read(file).value();
        return drafts;
    }

    /// Everything in that folder, a half-written file too.
    QStringList inboxFiles() const
    {
        return QDir(inboxPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }
};

} // namespace ovrin
