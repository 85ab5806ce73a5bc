#include "reader/PhotoMessage.h"

#include "reader/Fields.h"

#include <algorithm>

namespace ovrin::reader {

namespace {

bool isHexColor(const QString& text)
{
    const auto isDigit = [](QChar c) { return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F'); };
    return text.size() == 6 && std::all_of(text.begin(), text.end(), isDigit);
}

} // namespace

QByteArray PhotoAnswer::encoded() const
{
    return FieldWriter().bytes(jpeg).text(averageColorHex).bytes();
}

std::optional<PhotoAnswer> PhotoAnswer::decoded(const QByteArray& body)
{
    FieldReader fields(body);
    PhotoAnswer answer{fields.bytes(), fields.text()};
    if (!fields.isWhole() || answer.jpeg.isEmpty() || !isHexColor(answer.averageColorHex)) {
        return std::nullopt;
    }
    return answer;
}

} // namespace ovrin::reader
