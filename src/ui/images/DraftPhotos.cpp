#include "ui/images/DraftPhotos.h"

namespace ovrin {

QUrl DraftPhotos::show(const QByteArray& jpeg)
{
    m_jpeg = jpeg;
    return QUrl(QStringLiteral("image://photo/draft/%1").arg(++m_number));
}

QByteArray DraftPhotos::bytes(const QString& number) const
{
    return number == QString::number(m_number) ? m_jpeg : QByteArray();
}

} // namespace ovrin
