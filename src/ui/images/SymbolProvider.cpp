#include "ui/images/SymbolProvider.h"

#include <QtCore/QDir>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

namespace ovrin {

namespace {
const QString folder = QStringLiteral(":/Ovrin/symbols/");
constexpr int gridSide = 24;
constexpr int largestSide = 1024;
} // namespace

SymbolProvider::SymbolProvider()
    : QQuickImageProvider(Image)
{
}

QStringList SymbolProvider::names()
{
    QStringList names;
    for (const QString& file : QDir(folder).entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name))
        names.append(file.chopped(4));
    return names;
}

QImage SymbolProvider::symbol(const QString& name, const QColor& color, int side)
{
    const QString file = folder + name + QStringLiteral(".svg");
    if (name.contains(u'/') || !QFile::exists(file))
        return {};
    QSvgRenderer renderer(file);
    const int pixels = qBound(1, side, largestSide);
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    // The drawing gives the shape alone: every pixel takes the colour, scaled by its coverage.
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

QImage SymbolProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize)
{
    const qsizetype mark = id.indexOf(u'?');
    const QColor color = mark < 0 ? QColor(Qt::black) : QColor(id.sliced(mark + 1));
    const int side = requestedSize.width() > 0 ? requestedSize.width() : gridSide;
    QImage image = symbol(mark < 0 ? id : id.first(mark), color, side);
    if (size)
        *size = image.size();
    return image;
}

} // namespace ovrin
