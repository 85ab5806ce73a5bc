#pragma once

#include "import/document/TextLine.h"

#include <QCoro/QCoroTask>

#include <stop_token>

namespace ovrin {

/// Reads the text layer of a PDF, out of reach of whatever its bytes might do to a reader of PDFs.
class PdfTextLayer
{
public:
    virtual ~PdfTextLayer() = default;

    /// The lines of each of the first twelve pages, as they are drawn. Nothing when `pdf` cannot be read
    /// within bounds, or once `stop` is requested. Never throws.
    virtual QCoro::Task<std::optional<QList<QList<TextBox>>>> pages(QByteArray pdf, std::stop_token stop) = 0;
};

} // namespace ovrin
