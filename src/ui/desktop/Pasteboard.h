#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace ovrin {

/// The desktop's pasteboard.
class Pasteboard
{
public:
    /// An encoded picture, e.g. of the type "image/png".
    struct Picture
    {
        QByteArray bytes;
        QString mimeType;
    };

    virtual ~Pasteboard() = default;
    /// Its plain text; empty when it holds none.
    virtual QString text() const = 0;
    /// The picture on it, not decoded; nothing when it holds none.
    virtual std::optional<Picture> picture() const = 0;
    virtual void setText(const QString& text) = 0;
};

} // namespace ovrin
