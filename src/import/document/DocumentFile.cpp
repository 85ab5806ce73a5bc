#include "import/document/DocumentFile.h"

#include "import/error/RecipeImportError.h"

#include <QtCore/QFile>
#include <QtCore/QMimeDatabase>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ovrin {

namespace {

constexpr qint64 largestDocument = 200LL * 1024 * 1024;
constexpr qint64 pieceSize = 1024LL * 1024;

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
    // Not to wait at a pipe, nor to take a terminal; and what is looked at is what was opened.
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    struct stat status = {};
    // Anything but a plain file may have no end.
    const bool isPlain = descriptor >= 0 && ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    QFile file;
    if (!isPlain ||
        !file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        throw RecipeImportError::damagedFile();
    }
    if (status.st_size > largestDocument) {
        throw RecipeImportError::tooLarge();
    }
    QByteArray bytes;
    bytes.reserve(status.st_size);
    while (true) {
        const QByteArray piece = file.read(pieceSize);
        if (piece.isEmpty()) {
            break;
        }
        bytes += piece;
        // It may have grown since it was looked at.
        if (bytes.size() > largestDocument) {
            throw RecipeImportError::tooLarge();
        }
    }
    if (file.error() != QFileDevice::NoError) {
        throw RecipeImportError::damagedFile();
    }
    return bytes;
}

} // namespace ovrin
