#include "platform/reader/ReaderPdfTextLayer.h"

#include "reader/DocumentMessage.h"

#include <QCoro/QCoroFuture>

namespace ovrin {

std::optional<QList<QList<TextBox>>> ReaderPdfTextLayer::boxesOf(const std::optional<QByteArray>& body)
{
    const auto answer = body ? reader::DocumentAnswer::decoded(*body) : std::nullopt;
    if (!answer) {
        return std::nullopt;
    }
    QList<QList<TextBox>> pages;
    for (const QList<reader::PageLine>& page : answer->pages) {
        QList<TextBox> boxes;
        for (const reader::PageLine& line : page) {
            boxes.append({line.text, line.box, static_cast<int>(boxes.size())});
        }
        pages.append(boxes);
    }
    return pages;
}

ReaderPdfTextLayer::ReaderPdfTextLayer(QString program, std::chrono::milliseconds time)
    : m_reader(std::move(program))
    , m_time(time)
{
}

QCoro::Task<std::optional<QList<QList<TextBox>>>> ReaderPdfTextLayer::pages(QByteArray pdf,
                                                                            std::stop_token stop)
{
    if (pdf.isEmpty() || pdf.size() > qsizetype{reader::maximumDocumentBytes}) {
        co_return std::nullopt;
    }
    const reader::Frame request{reader::MessageKind::Document, std::move(pdf)};
    const auto answer =
        m_reader.answer(request, {reader::maximumDocumentAnswerBytes, m_time}, std::move(stop));
    // Nothing of this object is touched past here: it may be gone by then, and its readers with it.
    co_return boxesOf(co_await answer);
}

} // namespace ovrin
