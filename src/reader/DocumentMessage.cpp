#include "reader/DocumentMessage.h"

#include "reader/Fields.h"

#include <cmath>

namespace ovrin::reader {

namespace {

/// Text's size and four doubles: the least that a line takes.
constexpr qsizetype smallestLine = 4 + 4 * 8;
constexpr qsizetype smallestPage = 4;

bool isSound(const PageLine& line)
{
    const QRectF& box = line.box;
    return std::isfinite(box.x()) && std::isfinite(box.y()) && std::isfinite(box.width()) &&
           std::isfinite(box.height()) && line.text.size() <= maximumLineLength;
}

} // namespace

QByteArray DocumentAnswer::encoded() const
{
    FieldWriter fields;
    fields.u32(static_cast<quint32>(pages.size()));
    for (const QList<PageLine>& page : pages) {
        fields.u32(static_cast<quint32>(page.size()));
        for (const PageLine& line : page) {
            fields.text(line.text);
            fields.f64(line.box.x()).f64(line.box.y()).f64(line.box.width()).f64(line.box.height());
        }
    }
    return fields.bytes();
}

std::optional<DocumentAnswer> DocumentAnswer::decoded(const QByteArray& body)
{
    FieldReader fields(body);
    DocumentAnswer answer;
    const quint32 pages = fields.count(smallestPage);
    if (pages > maximumPages) {
        return std::nullopt;
    }
    for (quint32 page = 0; page < pages; ++page) {
        const quint32 lines = fields.count(smallestLine);
        if (lines > maximumLinesPerPage) {
            return std::nullopt;
        }
        answer.pages.append(QList<PageLine>());
        for (quint32 i = 0; i < lines; ++i) {
            PageLine line{fields.text(), {}};
            const double x = fields.f64();
            const double y = fields.f64();
            const double width = fields.f64();
            line.box = {x, y, width, fields.f64()};
            if (!fields.isIntact() || !isSound(line)) {
                return std::nullopt;
            }
            answer.pages.last().append(line);
        }
    }
    return fields.isWhole() ? std::optional(answer) : std::nullopt;
}

} // namespace ovrin::reader
