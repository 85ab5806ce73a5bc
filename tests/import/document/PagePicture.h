#pragma once

#include "import/document/TextLine.h"

#include <QtCore/QRegularExpression>

namespace ovrin {

/// A page drawn in characters: texts that three spaces or more part are lines of their own, at the place
/// where they stand in the picture. An empty line is a blank space. A page is 80 characters wide and 60 lines
/// high.
inline QList<TextLine> pagePicture(const char* utf8, int page = 0)
{
    static const QRegularExpression cell(QStringLiteral("\\S+(?: {1,2}\\S+)*"));
    constexpr double letter = 1.0 / 80;
    constexpr double row = 1.0 / 60;
    constexpr double height = 0.9 * row;
    QList<TextLine> lines;
    double bottom = 0;
    int y = 0;
    for (const QString& drawn : QString::fromUtf8(utf8).split(u'\n')) {
        auto cells = cell.globalMatch(drawn);
        while (cells.hasNext()) {
            const auto match = cells.next();
            const QRectF place(static_cast<double>(match.capturedStart()) * letter, y * row,
                               static_cast<double>(match.capturedLength()) * letter, height);
            const double gap = place.top() - bottom;
            lines.append({match.captured(), lines.isEmpty() || gap > 0.9 * height, 1, page, place});
            bottom = place.bottom();
        }
        ++y;
    }
    return lines;
}

} // namespace ovrin
