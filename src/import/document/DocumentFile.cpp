#include "import/document/DocumentFile.h"

#include "import/error/RecipeImportError.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeDatabase>

namespace ovrin {

namespace {

constexpr qint64 largestDocument = 200LL * 1024 * 1024;

} // namespace

QString DocumentFile::mimeType(const QString& path)
{
    const QMimeType type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    if (type.inherits(QStringLiteral("application/pdf"))) {
        return QStringLiteral("application/pdf");
    }
    return type.name().startsWith(u"image/") ? type.name() : QString();
}

QByteArray DocumentFile::read(const QString& path)
{
    const QFileInfo info(path);
    if (info.size() > largestDocument) {
        throw RecipeImportError::tooLarge();
    }
    QFile file(path);
    // Anything but a plain file may have no end.
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) {
        throw RecipeImportError::damagedFile();
    }
    QByteArray bytes = file.read(largestDocument + 1);
    if (bytes.size() > largestDocument) {
        throw RecipeImportError::tooLarge();
    }
    if (file.error() != QFileDevice::NoError) {
        throw RecipeImportError::damagedFile();
    }
    return bytes;
}

} // namespace ovrin
