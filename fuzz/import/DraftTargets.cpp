#include "fuzz/import/DraftTargets.h"

#include "fuzz/Require.h"
#include "import/DraftFolder.h"
#include "import/ImportLink.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

namespace ovrin::fuzz {

namespace {

void requireSound(const QUrl& link)
{
    const auto page = ImportLink::page(link);
    const auto draft = ImportLink::draft(link);
    require(!page || !draft, "a link asks for one thing");
    require((!page && !draft) || ImportLink::isOurs(link), "a link of others asks for nothing");
    require(!page || (page->isValid() &&
                      (page->scheme() == QLatin1String("http") || page->scheme() == QLatin1String("https"))),
            "a page is on the web");
    require(!draft || RecipeDraft::fromJson(draft->toJson()) == draft, "a draft can be kept");
}

} // namespace

void importLink(QByteArrayView bytes)
{
    const QString text = QString::fromUtf8(bytes);
    requireSound(QUrl(text));
    requireSound(QUrl(QStringLiteral("ovrin://import?url=") + text));
    requireSound(QUrl(QStringLiteral("ovrin://draft?json=") +
                      QString::fromLatin1(bytes.toByteArray().toBase64().toPercentEncoding())));
}

void inboxDraft(QByteArrayView bytes)
{
    static const QTemporaryDir home;
    const DraftFolder inbox(home.filePath(QStringLiteral("Inbox")));
    const QString name = inbox.path() + QStringLiteral("/draft.json");
    QFile file(name);
    require(QDir().mkpath(inbox.path()) && file.open(QIODevice::WriteOnly) &&
                file.write(bytes.toByteArray()) == bytes.size(),
            "the file can be made");
    file.close();
    require(inbox.files(DraftFolder::Order::ByAge) == QStringList(name), "what lies there is seen");
    if (const auto draft = DraftFolder::read(name)) {
        require(RecipeDraft::fromJson(draft->toJson()) == draft, "a draft can be kept");
        require(DraftFolder::remove(name), "what was taken goes");
        return;
    }
    inbox.reject(name);
    QDir rejected(home.filePath(QStringLiteral("Rejected")));
    const QStringList kept = rejected.entryList(QDir::Files);
    require(kept.size() == 1 && !QFile::exists(name), "what is no draft is put aside");
    QFile aside(rejected.filePath(kept.first()));
    require(aside.open(QIODevice::ReadOnly) && aside.readAll() == bytes, "and is what it was");
    aside.remove();
}

} // namespace ovrin::fuzz
