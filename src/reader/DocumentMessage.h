#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QRectF>
#include <QtCore/QString>

#include <optional>

namespace ovrin::reader {

/// The largest document that is looked at, in bytes.
inline constexpr quint32 maximumDocumentBytes = 200 * 1024 * 1024;

/// Pages beyond these are not read.
inline constexpr int maximumPages = 12;
/// Lines of a page beyond these are not read: more than any page for people has, and few enough that putting
/// them in order takes no time.
inline constexpr int maximumLinesPerPage = 2000;
inline constexpr qsizetype maximumLineLength = 4000;

/// The largest answer to a document.
inline constexpr quint32 maximumDocumentAnswerBytes = 64 * 1024 * 1024;

/// One line of a page's text layer.
struct PageLine
{
    QString text;
    /// Page-normalised: 0 to 1 across width and height, origin at the top left, y downwards.
    QRectF box;

    bool operator==(const PageLine&) const = default;
};

/// The answer to a document (whose bytes are the request): the lines of its first pages, each page's in the
/// order in which it draws them.
struct DocumentAnswer
{
    QList<QList<PageLine>> pages;

    QByteArray encoded() const;
    /// Nothing when a field is missing, left over or out of bounds; boxes are finite.
    static std::optional<DocumentAnswer> decoded(const QByteArray& body);
};

} // namespace ovrin::reader
