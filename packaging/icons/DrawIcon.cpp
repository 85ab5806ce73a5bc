// Draws the icon at one size: draw-icon ICON.svg SIZE ICON.png

#include <QtCore/QString>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

int main(int argc, char** argv)
{
    const int size = argc == 4 ? QString::fromLocal8Bit(argv[2]).toInt() : 0;
    QSvgRenderer drawing(QString::fromLocal8Bit(size > 0 ? argv[1] : ""));
    if (!drawing.isValid())
        return 1;
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    return image.save(QString::fromLocal8Bit(argv[3])) ? 0 : 1;
}
