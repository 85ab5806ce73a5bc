#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QUrl>

namespace ovrin {

/// The photo of the draft being edited, which no store holds yet, under an address that an Image can show.
class DraftPhotos
{
public:
    /// Each call gives a new address: what was shown before under another is stale.
    QUrl show(const QByteArray& jpeg);
    void hide() { m_jpeg.clear(); }
    /// Empty for an address that is not the last one.
    QByteArray bytes(const QString& number) const;

private:
    QByteArray m_jpeg;
    int m_number = 0;
};

} // namespace ovrin
