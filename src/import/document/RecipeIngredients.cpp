#include "import/document/LineFlow.h"
#include "import/document/LineShape.h"
#include "import/document/PageMeasure.h"
#include "import/document/RecipeItems.h"
#include "import/document/RecipeWords.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <algorithm>

namespace ovrin {

namespace {

qsizetype count(const QList<TextLine>& lines, bool (*is)(const QString&))
{
    return std::count_if(lines.begin(), lines.end(), [is](const TextLine& line) { return is(line.text); });
}

bool hasOpenBracket(const QString& text)
{
    return text.count(u'(') > text.count(u')');
}

/// "salt to taste", "sunflower oil": a name that is whole, whatever stands before it.
bool standsAlone(const QString& text)
{
    const QString first = text.section(u' ', 0, 0).toLower();
    const QString second = text.section(u' ', 1, 1).toLower();
    const bool saysUse = second == u"to" || second == u"for" || second == u"as";
    return RecipeWords::pantryPairs().contains(first + u' ' + second) ||
           (saysUse && RecipeWords::pantry().contains(first));
}

/// The first word's letters, in lower case.
QString firstWord(const QString& text)
{
    QString first = text.section(u' ', 0, 0).toLower();
    while (!first.isEmpty() && !first.back().isLetter()) {
        first.chop(1);
    }
    return first;
}

/// What a list may well name alone on a line, without an amount and without a capital: "salt", "water to thin
/// the sauce", "sunflower oil".
bool isPantryItem(const QString& text)
{
    constexpr qsizetype mostSpaces = 3;
    return standsAlone(text) || (RecipeWords::pantry().contains(firstWord(text)) &&
                                 text.section(u'(', 0, 0).trimmed().count(u' ') <= mostSpaces);
}

double medianWidth(const QList<TextLine>& lines)
{
    std::vector<double> widths;
    for (const TextLine& line : lines) {
        widths.push_back(LineShape::estimatedWidth(line.text));
    }
    return widths.empty() ? 0 : medianOf(std::move(widths));
}

/// "4", "350ml | 1 1/2 cup": what stands behind an ingredient's name rather than a group's.
bool isAmountAlone(const QString& text)
{
    const QStringList amounts = text.split(QRegularExpression(QStringLiteral("\\s*[|/]\\s+|\\s+[|/]\\s*")));
    return std::all_of(amounts.begin(), amounts.end(), LineShape::isBareAmount);
}

/// An amount, in figures or in words ("a pinch of", but not "juice" alone).
bool opensWithAmount(const QString& text)
{
    return LineShape::startsWithAmount(text) ||
           (text.contains(u' ') && LineShape::startsWithAmountWord(text));
}

/// "200 g flour", "about 50 g cheese", but not "a letter each week".
bool namesAmount(const QString& text)
{
    return LineShape::startsWithAmount(text) ||
           (opensWithAmount(text) && LineShape::startsWithAmount(text.section(u' ', 1)));
}

/// "(optional, to have a", "(see below)", but not "(Optional) a bottle of stout".
bool opensAside(const QString& text)
{
    return text.startsWith(u'(') && (!text.contains(u')') || text.endsWith(u')'));
}

QString lastWord(const QString& text)
{
    return text.section(u' ', -1).toLower();
}

/// "extra virgin": what a name must follow.
bool endsInModifier(const QString& text)
{
    return RecipeWords::modifiers().contains(lastWord(text));
}

/// No column is so narrow that its lines are wrapped at this width, in LineShape::estimatedWidth.
constexpr double narrowestColumn = 18;

/// Tells the entries of one list of ingredients apart, by the list's own habits.
class IngredientList
{
public:
    explicit IngredientList(const QList<TextLine>& lines)
        : m_lines(lines)
        , m_flow(lines)
        , m_fullWidth(RecipeItems::fullWidth(lines))
        , m_isBulleted(count(lines, LineShape::hasBullet) * 5 >= lines.size() * 2)
    {
        qsizetype starts = 0;
        qsizetype apart = 0;
        qsizetype lowerCase = 0;
        qsizetype words = 0;
        qsizetype rests = 0;
        qsizetype further = 0;
        qsizetype sentences = 0;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const TextLine& line = lines[i];
            const bool starting = LineShape::hasAmountOrBullet(line.text);
            starts += starting ? 1 : 0;
            apart += starting && line.startsBlock ? 1 : 0;
            const bool isWord = !line.text.isEmpty() && line.text.front().isLetter();
            words += isWord ? 1 : 0;
            lowerCase += isWord && line.text.front().isLower() ? 1 : 0;
            const bool isFurther = i > 0 && (starting || opensWithAmount(line.text));
            further += isFurther ? 1 : 0;
            sentences += isFurther && lines[i - 1].text.endsWith(u'.') ? 1 : 0;
            rests += i > 0 && isWord && line.text.front().isLower() && !m_flow.hadRoom(i) ? 1 : 0;
        }
        const auto blocks =
            std::count_if(lines.begin(), lines.end(), [](const TextLine& line) { return line.startsBlock; });
        m_isScattered = blocks * 3 > lines.size() * 2;
        m_isSpaced = starts >= 3 && apart * 10 >= starts * 8;
        m_hasAmounts = starts >= 3 && starts * 10 >= (lines.size() - rests) * 3;
        m_isAmountList = starts * 10 >= (lines.size() - rests) * 7;
        m_hasSentences = sentences > 1 && sentences * 2 > further;
        m_isLowerCase = lowerCase * 2 > words;
        m_mayWrap = m_fullWidth > narrowestColumn && hasWrappedLines(lines);
        const auto first = std::find_if(lines.begin(), lines.end(),
                                        [](const TextLine& line) { return !line.text.endsWith(u':'); });
        m_hasAmountsFirst = first != lines.end() && isAmountAlone(first->text);
        m_namesBehindFull = namesBehindFull(false);
        m_lowerNamesBehindFull = namesBehindFull(true);
        m_entryGap = entryGap();
        for (qsizetype i = 1; i < lines.size() && !m_hasFurtherGroup; ++i) {
            m_hasFurtherGroup = isGroupHeading(i);
        }
    }

    bool isGroupHeading(qsizetype i) const
    {
        const TextLine& line = m_lines[i];
        const QString& text = line.text;
        const bool last = i + 1 == m_lines.size();
        if (text.endsWith(u':') && text.size() < 60) {
            // "Herbs of your choice:" at a line's end goes on in the next one.
            return last || (m_flow.verdict(i + 1) != LineFlow::Verdict::Continues &&
                            !isAmountAlone(m_lines[i + 1].text));
        }
        if (last || LineShape::startsWithAmount(text) || LineShape::hasBullet(text) || text.size() > 40 ||
            LineShape::endsSentence(text) || !text.front().isUpper() || text.contains(u',')) {
            return false;
        }
        const QString lower = text.toLower();
        const bool opensGroup = std::any_of(
            RecipeWords::groupOpenings().begin(), RecipeWords::groupOpenings().end(),
            [&](const QString& opening) { return opening.endsWith(u' ') && lower.startsWith(opening); });
        const bool largerType = line.relativeHeight >= 1.12;
        const bool capitals =
            LineShape::isAllCapitals(text) && !LineShape::isAllCapitals(m_lines[i + 1].text);
        // In bold, perhaps, but in the list's own size: the only line without a mark, apart from the rest.
        const bool namesGroup = RecipeWords::groupNames().contains(lastWord(text));
        const bool mayBeApart =
            text.count(u' ') < 4 && !m_lines[i + 1].startsBlock && m_flow.hadRoom(i + 1) &&
            m_flow.verdict(i + 1) != LineFlow::Verdict::Continues && !m_lines[i + 1].text.startsWith(u'(') &&
            !opensWithAmount(text) && (namesGroup || !isPantryItem(text));
        const bool isSetOff = isApart(i) || ((m_isBulleted || m_isAmountList) && line.startsBlock);
        const bool standsApart = mayBeApart && (i == 0 ? m_hasFurtherGroup : isSetOff);
        return (startsWithMarkOrAmount(i + 1) &&
                (opensGroup || largerType || capitals || standsApart || (m_isBulleted && i == 0))) ||
               (mayBeApart && namesGroup && isApart(i));
    }

    /// Whether amounts stand on lines of their own, each in front of its name.
    bool hasAmountsFirst() const { return m_hasAmountsFirst; }

    /// Whether line `i` continues `entry`, which ends in the line before.
    bool continues(qsizetype i, const QString& entry) const
    {
        const TextLine& line = m_lines[i];
        const QString& text = line.text;
        const QString& previous = m_lines[i - 1].text;
        if (LineShape::hasBullet(text) || isInOtherType(i)) {
            return false;
        }
        if (m_isBulleted) {
            return !line.startsBlock || text.front().isLower() || hasOpenBracket(entry);
        }
        const bool room = m_flow.hadRoom(i);
        const LineFlow::Verdict verdict = m_flow.verdict(i);
        // But "1 onion, large" is whole.
        if (endsInModifier(entry) && !entry.contains(u',') && !opensWithAmount(text) && !line.startsBlock &&
            verdict != LineFlow::Verdict::Begins) {
            return true;
        }
        const bool isOpenEnd = previous.endsWith(u',') || endsInModifier(previous);
        const bool runsOn = hasOpenBracket(entry) || (previous.endsWith(u':') && isAmountAlone(text)) ||
                            QStringView(u"-/|").contains(previous.back()) ||
                            RecipeWords::connectors().contains(lastWord(previous)) ||
                            (previous.endsWith(u',') && text.front().isLower() && !m_flow.followsDown(i)) ||
                            (LineShape::isCount(lastWord(previous)) && !room);
        if (verdict == LineFlow::Verdict::Continues) {
            // Nobody breaks a whole name in front of another one, or an entry in front of a second amount.
            const bool isNext = !isOpenEnd && (standsAlone(text) || isBehindSentence(i) ||
                                               (LineShape::startsWithAmount(text) && namesAmount(entry)));
            return runsOn ||
                   (!isNext && (!room || !opensWithAmount(text)) && !(m_isScattered && line.startsBlock));
        }
        if (verdict == LineFlow::Verdict::Begins) {
            return hasOpenBracket(entry) && !room && !line.startsBlock;
        }
        if ((m_hasAmountsFirst || !room) && entry == previous && isAmountAlone(entry) &&
            !LineShape::startsWithAmount(text)) {
            return true;
        }
        if (LineShape::startsWithAmount(text)) {
            return runsOn && !line.startsBlock && (!room || (hasOpenBracket(entry) && m_flow.followsDown(i)));
        }
        if (m_isSpaced) {
            return !line.startsBlock;
        }
        if (line.startsBlock && !runsOn) {
            return false;
        }
        // An aside in brackets belongs to what stands before it, unless more follows the brackets.
        if (runsOn || (text.startsWith(u'(') && text.endsWith(u')'))) {
            return true;
        }
        if (!room && (QStringView(u"/&\"“„‘«").contains(text.front()) || opensAside(text) || isOpenEnd)) {
            return true;
        }
        if (isRestOfFullLine(i, entry)) {
            return true;
        }
        if (!m_mayWrap || isPantryItem(text) || opensWithAmount(text)) {
            return false;
        }
        const bool open = previous.endsWith(u',') || (text.front().isLower() && !previous.endsWith(u')'));
        return open && (!room || (!m_isLowerCase && m_isAmountList && previous.endsWith(u',')));
    }

private:
    /// From one entry to the next, in heights of a line; 0 where that cannot be told.
    double entryGap() const
    {
        constexpr std::size_t leastGaps = 3;
        std::vector<double> gaps;
        for (qsizetype i = 1; i < m_lines.size(); ++i) {
            if (m_flow.isPlaced() && m_flow.followsDown(i) && startsWithMarkOrAmount(i)) {
                gaps.push_back(m_flow.gap(i));
            }
        }
        return gaps.size() < leastGaps ? 0 : medianOf(std::move(gaps));
    }

    /// Whether line `i` stands further below the one before than entries do, and closer above the next one.
    bool isApart(qsizetype i) const
    {
        constexpr double leastMore = 0.2;
        return m_entryGap > 0 && m_flow.followsDown(i) && m_flow.followsDown(i + 1) &&
               m_flow.gap(i) > m_entryGap + leastMore && m_flow.gap(i + 1) < m_flow.gap(i) - 0.5 * leastMore;
    }

    /// Whether line `i` is set larger or smaller than the one before.
    bool isInOtherType(qsizetype i) const
    {
        constexpr double otherSize = 1.2;
        const double height = m_lines[i].relativeHeight;
        const double above = m_lines[i - 1].relativeHeight;
        return height > otherSize * above || above > otherSize * height;
    }

    /// Whether lines that begin like the rest of another follow full lines, as the rests of wrapped lines do,
    /// or short ones just as well, as the entries of a list in lower case do.
    bool hasWrappedLines(const QList<TextLine>& lines) const
    {
        qsizetype behindFull = 0;
        qsizetype behindShort = 0;
        qsizetype starts = 0;
        for (qsizetype i = 1; i < lines.size(); ++i) {
            const bool rest = lines[i].text.front().isLower() && !isPantryItem(lines[i].text);
            const bool full = !m_flow.hadRoom(i);
            behindFull += rest && full ? 1 : 0;
            behindShort += rest && !full ? 1 : 0;
            starts += rest ? 0 : 1;
        }
        // Wrapped or not, a list has more beginnings than rests; one of lower case only has none.
        return behindFull > 0 && behindFull > behindShort &&
               (!m_isLowerCase || starts * 2 > behindFull || m_fullWidth > 1.6 * medianWidth(lines));
    }

    /// How many more lines without an amount or a mark, those in lower case or all but the pantry's, follow
    /// full lines than short ones.
    qsizetype namesBehindFull(bool onlyLower) const
    {
        qsizetype more = 0;
        for (qsizetype i = 1; i < m_lines.size(); ++i) {
            const QString& text = m_lines[i].text;
            if (m_flow.verdict(i) == LineFlow::Verdict::Unknown && !LineShape::hasBullet(text) &&
                !opensWithAmount(text) && (onlyLower ? text.front().isLower() : !isPantryItem(text))) {
                more += m_flow.hadRoom(i) ? -1 : 1;
            }
        }
        return more;
    }

    /// Whether line `i` is the rest of `entry`, which opens with an amount and fills the line before, by its
    /// words: a name in lower case that does not stand alone, or what lines without an amount are in this
    /// list.
    bool isRestOfFullLine(qsizetype i, const QString& entry) const
    {
        const QString& text = m_lines[i].text;
        if (!m_hasAmounts || !m_flow.isPlaced() || m_flow.hadRoom(i) || !namesAmount(entry) ||
            !text.front().isLetter() || opensWithAmount(text) || m_lines[i - 1].text.endsWith(u')')) {
            return false;
        }
        const bool isWhole = RecipeWords::staples().contains(firstWord(text)) ||
                             RecipeWords::staples().contains(lastWord(text)) || text.contains(u'(');
        if (standsAlone(text) || (isPantryItem(text) && isWhole)) {
            return text.front().isLower() && !text.contains(u' ') && m_lowerNamesBehindFull >= 0;
        }
        return text.front().isLower() || m_namesBehindFull > 0;
    }

    /// Whether line `i` follows a full stop, where entries end in one.
    bool isBehindSentence(qsizetype i) const
    {
        return m_hasSentences && m_lines[i].text.front().isUpper() && m_lines[i - 1].text.endsWith(u'.');
    }

    bool startsWithMarkOrAmount(qsizetype i) const
    {
        return LineShape::hasAmountOrBullet(m_lines[i].text) ||
               LineShape::ingredientLikeness(m_lines[i].text) > 0.5;
    }

    const QList<TextLine>& m_lines;
    LineFlow m_flow;
    double m_fullWidth;
    bool m_isBulleted;
    bool m_isSpaced = false;
    /// Most lines were read with something else between them, as rows of a table may be.
    bool m_isScattered = false;
    /// Enough lines open with an amount to take them for a habit.
    bool m_hasAmounts = false;
    bool m_isAmountList = false;
    /// Entries end in a full stop.
    bool m_hasSentences = false;
    bool m_isLowerCase = false;
    qsizetype m_namesBehindFull = 0;
    qsizetype m_lowerNamesBehindFull = 0;
    bool m_hasAmountsFirst = false;
    double m_entryGap = 0;
    /// A group has a heading below the first line.
    bool m_hasFurtherGroup = false;
    /// Some line is so much longer than the others, or so many begin with a word, that lines may be wrapped.
    bool m_mayWrap = false;
};

/// "1. 2 cups flour": some lists number their ingredients.
QString withoutListNumber(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("^\\d{1,2}[.)]\\s+(?=\\S)"));
    return QString(text).remove(number);
}

bool isNumberedList(const QList<TextLine>& lines)
{
    int expected = 1;
    for (const TextLine& line : lines) {
        const auto number = LineShape::numbered(line.text);
        if (number && !LineShape::isBareNumber(line.text) && number->number == expected) {
            ++expected;
        }
    }
    return expected > 3;
}

} // namespace

std::optional<QStringList> RecipeItems::runIn(const QList<TextLine>& lines)
{
    constexpr qsizetype leastSeparators = 2;
    constexpr qsizetype longestGroup = 40;
    const QString text = RecipeItems::joined(lines);
    const qsizetype separators = text.count(QStringLiteral("; "));
    if (separators < leastSeparators || separators + 1 < lines.size()) {
        return std::nullopt;
    }
    QStringList entries;
    for (QString entry : text.split(QStringLiteral("; "), Qt::SkipEmptyParts)) {
        entry = entry.trimmed();
        // "For the sauce: 2 tomatoes"
        const qsizetype colon = entry.indexOf(QStringLiteral(": "));
        if (colon > 0 && colon < longestGroup && !LineShape::startsWithAmount(entry) &&
            LineShape::startsWithAmount(entry.mid(colon + 2)) && !isAmountAlone(entry.mid(colon + 2))) {
            entries.append(entry.first(colon + 1));
            entry = entry.mid(colon + 2);
        }
        entries.append(entry);
    }
    if (entries.last().endsWith(u'.') || entries.last().endsWith(u';')) {
        entries.last().chop(1);
    }
    return entries;
}

QStringList RecipeItems::ingredients(const QList<TextLine>& lines)
{
    const IngredientList list(lines);
    const bool isNumbered = isNumberedList(lines);
    QStringList entries;
    bool mayContinue = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (list.isGroupHeading(i)) {
            const QString heading = LineShape::withoutBullet(lines[i].text);
            entries.append(heading.endsWith(u':') ? heading : heading + u':');
            mayContinue = false;
        } else if (mayContinue && list.continues(i, entries.last())) {
            entries.last() = RecipeItems::joined(entries.last(), lines[i].text);
        } else {
            const QString entry = LineShape::withoutBullet(lines[i].text).trimmed();
            // A page's number, perhaps.
            const bool isStray = LineShape::isCount(entry) && !list.hasAmountsFirst();
            if (!entry.isEmpty() && !isStray) {
                entries.append(isNumbered ? withoutListNumber(entry) : entry);
                mayContinue = true;
            }
        }
    }
    entries.removeIf(LineShape::isCount);
    return entries;
}

} // namespace ovrin
