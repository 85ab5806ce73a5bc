#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QRectF>
#include <QtCore/QString>

#include <optional>

namespace ovrin {

/// One line of a document's text, in reading order.
struct TextLine
{
    /// Trimmed, without the signs that icons in front of numbers leave behind. Empty only in plain text,
    /// where an empty line parts paragraphs.
    QString text;
    /// The first line of a block: after a blank space of about a line, or after a jump to another column.
    bool startsBlock = false;
    /// Height of the line's box over the typical line height of its page; 1 is body text.
    double relativeHeight = 1;
    /// The page's index, from 0.
    int page = 0;
    /// Where the line stands on its page, in the coordinates of `TextBox`; null where nobody knows, as in
    /// plain text. This and what follows are left out of JSON.
    QRectF place = {};
    /// How far to the right the lines of its column reach; 0 where nobody knows.
    double columnRight = 0;
    /// See `TextBox`.
    int drawn = -1;

    bool operator==(const TextLine&) const = default;
};

/// One line of text as its source gave it, before ordering. `rect` is in page-normalised coordinates: 0 to 1
/// across the page's width and height, origin at the top left, y downwards.
struct TextBox
{
    QString text;
    QRectF rect;
    /// Its place in the order in which the page's lines are drawn; -1 where nobody knows.
    int drawn = -1;

    bool operator==(const TextBox&) const = default;
};

namespace TextLines {

/// The largest `relativeHeight`; 0 of no lines.
double tallest(const QList<TextLine>& lines);

/// The lines of a plain text; a line after an empty one starts a block.
QList<TextLine> fromPlainText(const QString& text);

/// `[{"text", "startsBlock", "relativeHeight", "page"}]`
QByteArray toJson(const QList<TextLine>& lines);

/// Nothing when the bytes are no list of objects with a "text"; the other fields may be missing.
std::optional<QList<TextLine>> fromJson(const QByteArray& json);

} // namespace TextLines

} // namespace ovrin
