#pragma once

#include "import/document/PdfTextLayer.h"
#include "platform/reader/DocumentReader.h"

namespace ovrin {

/// The text of PDFs by way of the document reader.
class ReaderPdfTextLayer : public PdfTextLayer
{
public:
    /// Longer than any document takes that is worth having, and shorter than the reader's own limit.
    static constexpr std::chrono::milliseconds defaultTime{15'000};

    /// `program` is the document reader's path. Every document is read, or given up, within `time`.
    explicit ReaderPdfTextLayer(QString program, std::chrono::milliseconds time = defaultTime);

    QCoro::Task<std::optional<QList<QList<TextBox>>>> pages(QByteArray pdf, std::stop_token stop) override;

    /// What the body of a reader's answer says; nothing when there is none, or it is not sound.
    static std::optional<QList<QList<TextBox>>> boxesOf(const std::optional<QByteArray>& body);

private:
    DocumentReader m_reader;
    std::chrono::milliseconds m_time;
};

} // namespace ovrin
