#include "helpers/document-reader/document/PdfText.h"

extern "C" bool ovrinAnswer(const QByteArray& body, QByteArray& answer)
{
    const auto text = ovrin::documentreader::pdfText(body);
    if (text) {
        answer = text->encoded();
    }
    return text.has_value();
}
