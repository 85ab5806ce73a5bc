#pragma once

#include <QtQuick/QQuickImageProvider>

namespace ovrin {

/// Draws one of Ovrin's symbols in one colour: `image://symbol/<name>?<colour>`, e.g.
/// `image://symbol/fork.knife?#99ffffff`. Without a colour it is black; an unknown name gives a null picture,
/// which QML reports as an error. The size asked for is in device pixels.
class SymbolProvider : public QQuickImageProvider
{
public:
    SymbolProvider();
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

    /// Names of all symbols there are, sorted.
    static QStringList names();
    /// The symbol as a square picture; null for an unknown name.
    static QImage symbol(const QString& name, const QColor& color, int side);
};

} // namespace ovrin
