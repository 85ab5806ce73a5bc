#include "platform/instance/LibraryName.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace ovrin {

namespace {

/// The folder with its links resolved as far as it exists: before its first start it does not.
QString canonical(const QString& folder)
{
    QString path = QDir::cleanPath(QDir::current().absoluteFilePath(folder));
    QString missing;
    while (!QFileInfo::exists(path) && path.size() > 1) {
        const qsizetype slash = path.lastIndexOf(u'/');
        missing.prepend(path.mid(slash));
        path.truncate(std::max<qsizetype>(slash, 1));
    }
    return QFileInfo(path).canonicalFilePath() + missing;
}

} // namespace

QString libraryName(const QString& folder)
{
    const QByteArray hash =
        QCryptographicHash::hash(canonical(folder).toUtf8(), QCryptographicHash::Sha256).toHex();
    return applicationName + QStringLiteral(".Library_") + QString::fromLatin1(hash.first(16));
}

} // namespace ovrin
