#include "platform/desktop/QtPasteboard.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

namespace ovrin {

QString QtPasteboard::text() const
{
    return QGuiApplication::clipboard()->text();
}

std::optional<Pasteboard::Picture> QtPasteboard::picture() const
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data)
        return std::nullopt;
    // By name, and never through imageData(): that would decode foreign bytes here.
    for (const char* type : {"image/png", "image/jpeg", "image/webp", "image/tiff", "image/gif", "image/bmp"})
        if (const QString name = QString::fromLatin1(type); data->hasFormat(name))
            if (const QByteArray bytes = data->data(name); !bytes.isEmpty())
                return Picture{bytes, name};
    return std::nullopt;
}

void QtPasteboard::setText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace ovrin
