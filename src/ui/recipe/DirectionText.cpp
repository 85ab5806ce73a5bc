#include "ui/recipe/DirectionText.h"

#include "cooking/TimerLink.h"

namespace ovrin {

namespace {

const QString ingredientPrefix = QStringLiteral("ovrin-ingredient:");

QString addressOf(const DirectionSegment& segment)
{
    return segment.kind == DirectionSegment::Kind::Timer
               ? QString::fromLatin1(TimerLink::url(segment.seconds, segment.text).toEncoded())
               : ingredientAddress(segment.ingredientIndex);
}

} // namespace

QString ingredientAddress(qsizetype index)
{
    return ingredientPrefix + QString::number(index);
}

int ingredientOf(const QString& address)
{
    bool isNumber = false;
    const int index = QStringView(address).mid(ingredientPrefix.size()).toInt(&isNumber);
    return address.startsWith(ingredientPrefix) && isNumber ? index : -1;
}

QList<DirectionParagraph::Link> DirectionParagraph::links() const
{
    QList<Link> links;
    for (const DirectionSegment& segment : segments)
        if (segment.kind != DirectionSegment::Kind::Plain)
            links.append({addressOf(segment), segment.text, segment.kind == DirectionSegment::Kind::Timer});
    return links;
}

QString DirectionParagraph::richText(const QString& textColor, const QString& accentColor,
                                     const QString& focusColor, int focused, int weight, int glyphSize) const
{
    QString html;
    int link = 0;
    for (const DirectionSegment& segment : segments) {
        const QString words = segment.text.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>"));
        if (segment.kind == DirectionSegment::Kind::Plain) {
            html += words;
            continue;
        }
        const bool isTimer = segment.kind == DirectionSegment::Kind::Timer;
        const QString style =
            QStringLiteral("color:%1;font-weight:%2;text-decoration:%3;%4")
                .arg(isTimer ? accentColor : textColor, QString::number(weight),
                     isTimer ? QStringLiteral("underline") : QStringLiteral("none"),
                     link == focused ? QStringLiteral("background-color:") + focusColor : QString());
        const QString glyph =
            isTimer && glyphSize > 0
                ? QStringLiteral("<img src=\"image://symbol/timer?%1\" width=\"%2\" height=\"%2\" "
                                 "style=\"vertical-align:middle\">&nbsp;")
                      .arg(accentColor.toHtmlEscaped(), QString::number(glyphSize))
                : QString();
        html += glyph + QStringLiteral("<a href=\"%1\" style=\"%2\">%3</a>")
                            .arg(addressOf(segment).toHtmlEscaped(), style, words);
        ++link;
    }
    return html;
}

} // namespace ovrin
