#include "import/document/RecipeItems.h"

#include "import/document/LineEndHyphens.h"
#include "import/document/LineShape.h"

#include <QtCore/QSet>

#include <algorithm>

namespace ovrin {

double RecipeItems::fullWidth(const QList<TextLine>& lines)
{
    double widest = 0;
    for (const TextLine& line : lines) {
        widest = std::max(widest, LineShape::estimatedWidth(line.text));
    }
    return widest;
}

bool RecipeItems::hadRoomFor(const QString& next, const QString& previous, double fullWidth)
{
    // The widths are estimates: a line counts as ended early only where the word would have fitted well.
    constexpr double slack = 0.94;
    const QString firstWord = next.section(u' ', 0, 0);
    return LineShape::estimatedWidth(previous + u' ' + firstWord) < slack * fullWidth;
}

QString RecipeItems::joined(const QString& text, const QString& next)
{
    static const QSet<QString> keepsHyphen = [] {
        const QStringList words =
            QStringLiteral(
                "all|self|low|high|medium|extra|well|half|full|non|semi|thick|thin|bite|free|gluten|dairy|"
                "deep|heavy|light|long|short|single|double|two|three|four|five|six|eight|ten|twelve|one|"
                "room|oven|store|sugar|fat|salt|grass|cold|hot|dry|fresh|freshly|sun|pan|stir|air|pre|"
                "post|non-stick|multi|ready|quick|slow|whole|cross|old|good|hard|soft|fine|coarse|inch|"
                "minute|hour|cup|quart|ounce|pound|golden|dark|large|small|mid|hand|home|must|on|off|up")
                .split(u'|');
        return QSet<QString>(words.begin(), words.end());
    }();
    static const QSet<QString> conjunctions{
        QStringLiteral("und"), QStringLiteral("oder"), QStringLiteral("and"),
        QStringLiteral("or"),  QStringLiteral("en"),   QStringLiteral("of"),
        QStringLiteral("och"), QStringLiteral("og"),   QStringLiteral("to")};
    if (text.isEmpty()) {
        return next;
    }
    if (text.endsWith(QChar(0x00AD))) {
        return text.chopped(1) + next;
    }
    if (text.endsWith(QChar(0x2011))) {
        return text.chopped(1) + u'-' + next;
    }
    const bool dividesWord = LineEndHyphens::isAtEndOf(text) && !next.isEmpty() && next.front().isLetter();
    if (!dividesWord) {
        return text + u' ' + next;
    }
    const QString left = text.section(u' ', -1).toLower().chopped(1);
    if (conjunctions.contains(next.section(u' ', 0, 0).toLower())) {
        return text + u' ' + next;
    }
    if (!next.front().isLower() || keepsHyphen.contains(left) || left.contains(u'-') || left.contains(u'/')) {
        return text + next;
    }
    return text.chopped(1) + next;
}

QString RecipeItems::joined(const QList<TextLine>& lines)
{
    QString text;
    for (const TextLine& line : lines) {
        text = joined(text, line.text);
    }
    return text;
}

} // namespace ovrin
