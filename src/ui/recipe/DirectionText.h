#pragma once

#include "text/DirectionSegment.h"

#include <QtCore/QStringList>
#include <QtCore/QUrl>

namespace ovrin {

/// One paragraph of the directions as it is shown.
struct DirectionParagraph
{
    /// Something in a paragraph that can be activated.
    struct Link
    {
        QString address;
        /// What it says, e.g. "10 minutes".
        QString text;
        bool isTimer = false;

        bool operator==(const Link&) const = default;
    };

    QString text;
    QList<DirectionSegment> segments;

    QList<Link> links() const;
    /// Rich text with mentions in bold and times as links, everything escaped. `focused` is the link that the
    /// keyboard is on, or -1; `weight` is that of mentions and times; `glyphSize` that of
    /// the drawing before a time, in pixels, 0 for none.
    QString richText(const QString& textColor, const QString& accentColor, const QString& focusColor,
                     int focused, int weight = 600, int glyphSize = 15) const;

    bool operator==(const DirectionParagraph&) const = default;
};

/// The address of a mention of the ingredient line at `index`, and back; -1 for another address.
QString ingredientAddress(qsizetype index);
int ingredientOf(const QString& address);

} // namespace ovrin
