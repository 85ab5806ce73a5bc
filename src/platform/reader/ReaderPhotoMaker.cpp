#include "platform/reader/ReaderPhotoMaker.h"

#include "reader/PhotoMessage.h"

#include <QCoro/QCoroFuture>

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>

namespace ovrin {

namespace {

constexpr int maximumSide = 1600;

/// The reader may have been taken over: its word is not enough for what it calls a JPEG. Only the header is
/// read; what is stored is decoded when it is shown, within the same bounds.
bool isStorable(const QByteArray& jpeg)
{
    if (!jpeg.startsWith("\xff\xd8\xff") || !jpeg.endsWith("\xff\xd9")) {
        return false;
    }
    QBuffer buffer;
    buffer.setData(jpeg);
    QImageReader reader(&buffer, QByteArrayLiteral("jpeg"));
    reader.setAutoDetectImageFormat(false);
    const auto size = reader.size();
    return !size.isEmpty() && size.width() <= maximumSide && size.height() <= maximumSide;
}

std::optional<Photo> checked(const std::optional<QByteArray>& body)
{
    auto answer = body ? reader::PhotoAnswer::decoded(*body) : std::nullopt;
    if (!answer || !isStorable(answer->jpeg)) {
        return std::nullopt;
    }
    return Photo{std::move(answer->jpeg), std::move(answer->averageColorHex)};
}

} // namespace

ReaderPhotoMaker::ReaderPhotoMaker(QString program, std::chrono::milliseconds time)
    : m_reader(std::move(program))
    , m_time(time)
{
}

QCoro::Task<std::optional<Photo>> ReaderPhotoMaker::photo(QByteArray bytes, std::stop_token stop)
{
    if (bytes.isEmpty() || bytes.size() > qsizetype{reader::maximumPhotoBytes}) {
        co_return std::nullopt;
    }
    const reader::Frame request{reader::MessageKind::Photo, std::move(bytes)};
    const auto answer = m_reader.answer(request, {reader::maximumPhotoAnswerBytes, m_time}, std::move(stop));
    // Nothing of this object is touched past here: it may be gone by then, and its readers with it.
    co_return checked(co_await answer);
}

} // namespace ovrin
