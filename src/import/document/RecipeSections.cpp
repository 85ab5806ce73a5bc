#include "import/document/RecipeSections.h"

#include "import/document/IngredientSearch.h"
#include "import/document/LineShape.h"
#include "import/document/RecipeFacts.h"
#include "import/document/RecipeTextParser.h"
#include "import/document/RecipeWords.h"

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cmath>
#include <optional>

namespace ovrin {

namespace {

/// "Ingredients / Zutaten": the same in two languages.
Heading bilingualHeading(const QString& line)
{
    static const QRegularExpression separator(QStringLiteral("\\s+[/|·–-]\\s+"));
    const QStringList parts = line.split(separator);
    if (parts.size() != 2 || parts[0].isEmpty() || parts[1].isEmpty()) {
        return {};
    }
    const Heading first = headingOf(parts[0]);
    return first.rest.isEmpty() && headingOf(parts[1]).kind == first.kind ? first : Heading();
}

/// "· Serves 4" without the sign that parts it from the heading.
QString withoutSeparator(const QString& rest)
{
    return QStringView(u"·•|–—-/,").contains(rest.isEmpty() ? QChar(u' ') : rest.front())
               ? rest.mid(1).trimmed()
               : rest;
}

} // namespace

Heading headingOf(const QString& line)
{
    static const QRegularExpression ornament(QStringLiteral("^[^\\p{L}]+"),
                                             QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression counted(
        QStringLiteral(
            "^\\d{1,5} (?:comments?|replies|responses|kommentare?|commentaires?|comentarios?|commenti|"
            "reacties|comentários?|komentarz[ey]|kommentarer)\\b.{0,12}$"),
        QRegularExpression::UseUnicodePropertiesOption | QRegularExpression::CaseInsensitiveOption);
    constexpr qsizetype longestHeading = 48;
    if (counted.match(line).hasMatch()) {
        return {HeadingKind::Other, {}};
    }
    constexpr qsizetype shortestPhrase = 10;
    static const QRegularExpression lead(
        QStringLiteral(
            "^(?:and|und|et|y|e|en|i|och|og|"
            "(?:for|für|pour|para|per|voor|dla|för|til) \\d{1,2}(?:[–-]\\d{1,2})?(?: \\p{L}+)?,?) $"),
        QRegularExpression::UseUnicodePropertiesOption | QRegularExpression::CaseInsensitiveOption);
    QString text = line;
    if (LineShape::startsWithAmount(text) || LineShape::hasBullet(text)) {
        return {};
    }
    text.remove(ornament);
    while (!text.isEmpty() && !text.back().isLetterOrNumber() && text.back() != u')' && text.back() != u'.') {
        text.chop(1);
    }
    struct Table
    {
        HeadingKind kind;
        const QStringList& words;
    };
    for (const Table& table : {Table{HeadingKind::Ingredients, RecipeWords::ingredientHeadings()},
                               Table{HeadingKind::Directions, RecipeWords::directionHeadings()},
                               Table{HeadingKind::Other, RecipeWords::otherHeadings()}}) {
        for (const QString& word : table.words) {
            // With space between its letters, which come in any portions ("IN GRED IEN T S").
            if (text.contains(u' ') && LineShape::isAllCapitals(text) &&
                QString(text).remove(u' ').compare(QString(word).remove(u' '), Qt::CaseInsensitive) == 0) {
                return {table.kind, {}};
            }
            // "And so it is made", "For 6+ bowls you will need".
            const bool endsWithPhrase = table.kind != HeadingKind::Other && word.contains(u' ') &&
                                        word.size() >= shortestPhrase && text.size() <= longestHeading &&
                                        line.front().isUpper() &&
                                        text.endsWith(u' ' + word, Qt::CaseInsensitive);
            if (endsWithPhrase) {
                return {table.kind, {}};
            }
            if (text.endsWith(u' ' + word, Qt::CaseInsensitive) &&
                lead.match(text.first(text.size() - word.size())).hasMatch()) {
                return {table.kind, {}};
            }
            if (!text.startsWith(word, Qt::CaseInsensitive)) {
                continue;
            }
            const bool isFact = RecipeFacts::isFact(line);
            const QString rest = text.mid(word.size()).trimmed();
            // "Zubereitung: Den Ofen heizen": the section begins on the heading's own line.
            if (rest.startsWith(u':') && !isFact) {
                return {table.kind, rest.mid(1).trimmed()};
            }
            // "Ingredients (yield: 4)".
            if (rest.startsWith(u'(') && text.endsWith(u')') && text.size() <= longestHeading) {
                return {table.kind, rest};
            }
            // "Ingredients (Yield: 10-11", wrapped.
            if (rest.startsWith(u'(') && !rest.contains(u')') && RecipeFacts::isFact(rest.mid(1))) {
                return {table.kind, rest.mid(1)};
            }
            // "Zutaten für 4 Personen", "Ingredients · Serves 4".
            const QString fact = withoutSeparator(rest);
            const bool isParted = fact.size() < rest.size() && RecipeFacts::isYield(fact);
            if ((!isFact || isParted) && text.size() <= longestHeading && RecipeFacts::isFact(fact)) {
                return {table.kind, fact};
            }
            if (!isFact && text.size() <= longestHeading &&
                RecipeTextParser::isHeading(text.toLower(), {word})) {
                return {table.kind, rest.startsWith(u'(') || RecipeFacts::isFact(rest) ? rest : QString()};
            }
        }
    }
    return line.size() <= longestHeading ? bilingualHeading(line) : Heading();
}

namespace {

class Sections
{
public:
    QList<Section> of(const QList<TextLine>& lines)
    {
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const bool jumps =
                i > 0 && !lines[i].place.isNull() &&
                (lines[i].page != lines[i - 1].page || lines[i].place.top() < lines[i - 1].place.top());
            const bool isLabel = RecipeFacts::isBareLabel(lines[i].text) && hasDuration(lines, i);
            add(lines[i], jumps, isLabel);
        }
        return withTitlesOfRecipesOnly();
    }

private:
    /// Large type above a list of ingredients is the next recipe's title, and above a method where it is as
    /// large as the first one's; any other is a part of what it stands in.
    QList<Section> withTitlesOfRecipesOnly() const
    {
        constexpr double alike = 0.93;
        const double titleHeight = TextLines::tallest(m_sections.first().lines);
        QList<Section> result{m_sections.first()};
        for (qsizetype i = 1; i < m_sections.size(); ++i) {
            const auto next =
                std::find_if(m_sections.begin() + i + 1, m_sections.end(),
                             [](const Section& section) { return section.kind != HeadingKind::Other; });
            const HeadingKind follows = next == m_sections.end() ? HeadingKind::None : next->kind;
            const bool isTitle = follows == HeadingKind::Ingredients ||
                                 (follows == HeadingKind::Directions && !m_sections[i].lines.isEmpty() &&
                                  m_sections[i].lines.first().relativeHeight > alike * titleHeight);
            if (m_sections[i].kind == HeadingKind::None && !isTitle) {
                result.last().lines += m_sections[i].lines;
            } else {
                result.append(m_sections[i]);
            }
        }
        return result;
    }

    /// Where a section's lines stand on the last page that has any.
    struct Column
    {
        int page = -1;
        double left = 0;
        double right = 0;
        double top = 0;
        double bottom = 0;
        /// The page that it began on.
        int begun = -1;
        /// How far its lines are counted up, in front.
        int lastNumber = 0;
    };

    /// Whether a time stands beside line `i` or is the first line below: "Preparation", "20 min".
    static bool hasDuration(const QList<TextLine>& lines, qsizetype i)
    {
        const QRectF& place = lines[i].place;
        qsizetype next = i + 1;
        const auto isBeside = [&] {
            return !place.isNull() && lines[next].page == lines[i].page &&
                   std::abs(lines[next].place.center().y() - place.center().y()) < 0.5 * place.height();
        };
        // A row of labels, with their times below.
        constexpr qsizetype mostLabels = 8;
        while (next < lines.size() && next <= i + mostLabels && isBeside() &&
               !RecipeFacts::isDuration(lines[next].text)) {
            ++next;
        }
        return next < lines.size() && RecipeFacts::isDuration(lines[next].text);
    }

    void add(const TextLine& line, bool jumps, bool isLabel)
    {
        // "Stir in the dry" and then "ingredients: flour, sugar": the rest of a sentence is no heading.
        const bool runsOn = !line.startsBlock && !line.text.isEmpty() && line.text.front().isLower();
        const Heading heading = runsOn || isLabel ? Heading() : headingOf(line.text);
        resumeAfterAside(line);
        if (heading.kind == HeadingKind::None) {
            if (isColumnHead(line)) {
                return;
            }
            m_amounts += LineShape::startsWithAmount(line.text) || LineShape::counted(line.text) ? 1 : 0;
            if (isTitleBesideTheRecipe(line)) {
                m_sections.first().lines.append(line);
                return;
            }
            if (isLargeType(line) && line.startsBlock && looksLikeTitle(line) && isComplete()) {
                begin(HeadingKind::None);
            } else if (jumps && isBesideRemark(line)) {
                beginUnheadedMethod();
            } else if (jumps) {
                m_current = continued(line);
            } else if (isBelowHeadingBeside(line)) {
                m_current = m_besideSection;
            } else {
                m_current = methodBeside(line).value_or(goesOnBeside(line) ? continued(line) : m_current);
            }
            m_current = sectionCountedOn(line).value_or(m_current);
            append(line);
            return;
        }
        // Above the recipe "Reviews" or "Video" is a button, not the heading of a section.
        if (heading.kind == HeadingKind::Other && !m_recipeBegun && m_amounts < leastAmounts) {
            return;
        }
        m_recipeBegun = true;
        const bool restIsAside = RecipeFacts::isFact(heading.rest) || heading.rest.startsWith(u'(');
        // A second list's is the next recipe's.
        if (restIsAside && heading.kind != HeadingKind::Other && !has(heading.kind)) {
            const bool isInBrackets = heading.rest.startsWith(u'(') && heading.rest.endsWith(u')');
            const QString aside = isInBrackets ? heading.rest.sliced(1).chopped(1) : heading.rest;
            m_sections.first().lines.append({aside, true, 1, line.page});
        }
        const bool isAside = heading.kind == HeadingKind::Other && !heading.rest.isEmpty() && !restIsAside &&
                             m_sections[m_current].kind != HeadingKind::None;
        if (isAside && !m_aside) {
            m_aside = Aside{m_current, line.relativeHeight};
        }
        m_beside = isOnRowOfHeading(line) ? m_heading : std::nullopt;
        m_besideSection = m_current;
        begin(heading.kind);
        m_heading = line;
        note(line);
        if (!heading.rest.isEmpty() && !restIsAside) {
            TextLine first = line;
            first.text = heading.rest;
            first.startsBlock = true;
            append(first);
        }
    }

    /// Type that no list and no method has, larger than all above: the title, below a picture beside the
    /// recipe.
    bool isTitleBesideTheRecipe(const TextLine& line) const
    {
        constexpr double titleType = 1.7;
        const QList<TextLine>& head = m_sections.first().lines;
        const bool hasTitle = std::any_of(head.begin(), head.end(), isLargeType);
        return m_current > 0 && (!isComplete() || !hasTitle) && line.relativeHeight >= titleType &&
               looksLikeTitle(line) && std::none_of(head.begin(), head.end(), [&](const TextLine& other) {
                   return other.relativeHeight > 1.05 * line.relativeHeight ||
                          (other.relativeHeight > titleType &&
                           (other.page < line.page ||
                            (other.page == line.page &&
                             other.place.bottom() + line.place.height() < line.place.top())));
               });
    }

    bool isOnRowOfHeading(const TextLine& line) const
    {
        return m_heading && m_heading->page == line.page && !line.place.isNull() &&
               std::abs(m_heading->place.bottom() - line.place.bottom()) < 0.3 * line.place.height();
    }

    /// A short line to the right of the last heading: the head of a further column of its table.
    bool isColumnHead(const TextLine& line) const
    {
        constexpr qsizetype longestHead = 14;
        return isOnRowOfHeading(line) && line.text.size() <= longestHead &&
               !LineShape::startsWithAmount(line.text) && !LineShape::endsSentence(line.text) &&
               line.place.left() > m_heading->place.right() &&
               line.relativeHeight < 1.1 * m_heading->relativeHeight && !RecipeFacts::isFact(line.text);
    }

    /// Of two headings beside each other the second may have nothing below it, as one for the reader's notes:
    /// the text then stands below the first.
    bool isBelowHeadingBeside(const TextLine& line) const
    {
        return m_beside && m_sections[m_current].lines.isEmpty() && !line.place.isNull() &&
               line.place.left() < m_beside->place.right() && line.place.left() < m_heading->place.left() &&
               m_beside->place.left() < m_heading->place.left();
    }

    /// "Tip: Use ripe ones." among the steps is no longer than its paragraph, where its type or the next
    /// step's number shows the end of it.
    void resumeAfterAside(const TextLine& line)
    {
        if (!m_aside) {
            return;
        }
        constexpr double sameType = 0.06;
        const bool isOver = std::abs(line.relativeHeight - m_aside->relativeHeight) > sameType ||
                            LineShape::numbered(line.text) || LineShape::hasBullet(line.text);
        const bool isInside = m_sections[m_current].kind == HeadingKind::Other;
        if (isInside && !isOver) {
            return;
        }
        if (isInside) {
            m_current = m_aside->section;
        }
        m_aside.reset();
    }

    void begin(HeadingKind kind)
    {
        m_sections.append({kind, {}});
        m_columns.append(Column());
        m_current = m_sections.size() - 1;
    }

    /// Without a list's heading either, both stand above all headings.
    void beginUnheadedMethod()
    {
        if (has(HeadingKind::Ingredients)) {
            begin(HeadingKind::Directions);
        } else {
            m_current = 0;
        }
    }

    bool has(HeadingKind kind) const
    {
        return std::any_of(m_sections.begin(), m_sections.end(), [&](const Section& section) {
            return section.kind == kind && !section.lines.isEmpty();
        });
    }

    bool isComplete() const { return has(HeadingKind::Ingredients) && has(HeadingKind::Directions); }

    void append(const TextLine& line)
    {
        m_sections[m_current].lines.append(line);
        note(line);
    }

    void note(const TextLine& line)
    {
        Column& column = m_columns[m_current];
        const QRectF& place = line.place;
        // Elsewhere a bare number may as well be an amount.
        const bool mayBeBare = m_sections[m_current].kind == HeadingKind::Directions;
        const auto number =
            mayBeBare || !LineShape::isBareNumber(line.text) ? LineShape::counted(line.text) : std::nullopt;
        column.lastNumber += number && number->number == column.lastNumber + 1 ? 1 : 0;
        if (column.page != line.page) {
            column = {line.page,        place.left(),   place.right(),
                      place.top(),      place.bottom(), column.begun < 0 ? line.page : column.begun,
                      column.lastNumber};
        } else {
            column.left = std::min(column.left, place.left());
            column.right = std::max(column.right, place.right());
            column.top = std::min(column.top, place.top());
            column.bottom = std::max(column.bottom, place.bottom());
        }
    }

    /// Whether `line` stands beside the end of a list that began on an earlier page.
    bool goesOnBeside(const TextLine& line) const
    {
        const Column& own = m_columns[m_current];
        return m_sections[m_current].kind == HeadingKind::Ingredients &&
               !m_sections[m_current].lines.isEmpty() && own.page == line.page && own.begun < own.page &&
               (line.place.left() > own.right || line.place.right() < own.left);
    }

    /// Whether `line` begins a column beside the one that a remark ends, where no method has been found yet:
    /// no text of a remark then, but perhaps a method without a heading, as what stands above all headings
    /// is.
    bool isBesideRemark(const TextLine& line) const
    {
        const Column& own = m_columns[m_current];
        return m_sections[m_current].kind == HeadingKind::Other && !has(HeadingKind::Directions) &&
               own.page == line.page && line.place.left() > own.right && line.place.top() < own.top;
    }

    /// The section that goes on where `line` begins a page or a column: the one at hand, unless it does not
    /// reach there and another one stood above, on the page before.
    qsizetype continued(const TextLine& line) const
    {
        const auto shared = [&](const Column& column) {
            return std::min(column.right, line.place.right()) - std::max(column.left, line.place.left());
        };
        const Column& own = m_columns[m_current];
        if (shared(own) > 0 || countsOn(stepNumber(line), m_current)) {
            return m_current;
        }
        // What stands above all headings goes on where it may hold the method.
        const bool hasMethod = std::any_of(m_sections.begin(), m_sections.end(), [](const Section& section) {
            return section.kind == HeadingKind::Directions;
        });
        for (qsizetype i = m_sections.size() - 1; i >= (hasMethod ? 1 : 0); --i) {
            const Column& column = m_columns[i];
            // What ended above the heading at hand does not go on below it.
            const bool isAbove =
                column.page == line.page && own.page == line.page && column.bottom <= own.top;
            // Nor does what ended overleaf, beside a section that begins on this page.
            const bool isOver = column.page < line.page && own.page == line.page && own.begun == line.page;
            const bool wasBeside =
                !isAbove && !isOver && (column.page == line.page - 1 || column.page == line.page);
            const bool isStepInList = m_sections[i].kind == HeadingKind::Ingredients &&
                                      m_sections[m_current].kind == HeadingKind::Directions &&
                                      LineShape::looksLikeStep(line.text);
            if (wasBeside && !isStepInList && shared(column) > 0.5 * line.place.width()) {
                return i;
            }
        }
        return m_current;
    }

    /// The method that goes on at `line`, where the list at hand stood to the right of it: what begins
    /// further to the left than any of the list's lines, below the method's.
    std::optional<qsizetype> methodBeside(const TextLine& line) const
    {
        constexpr double sameEdge = 0.015;
        const Column& own = m_columns[m_current];
        if (m_sections[m_current].kind != HeadingKind::Ingredients || line.place.isNull() ||
            own.page != line.page || line.place.left() > own.left - sameEdge) {
            return std::nullopt;
        }
        for (qsizetype i = m_current - 1; i > 0; --i) {
            const Column& column = m_columns[i];
            if (m_sections[i].kind == HeadingKind::Directions && column.page == line.page &&
                column.bottom > own.top && column.right < own.left + sameEdge &&
                column.left < line.place.left() + sameEdge && line.place.left() < column.right) {
                return i;
            }
        }
        return std::nullopt;
    }

    /// The number in front of `line` that steps may count on to. A bare one may as well be an amount.
    static int stepNumber(const TextLine& line)
    {
        constexpr int leastBare = 4;
        const auto number = LineShape::counted(line.text);
        const bool isStep = number && (!LineShape::isBareNumber(line.text) ||
                                       (number->number >= leastBare && LineShape::isProse(line.text)));
        return isStep ? number->number : 0;
    }

    bool countsOn(int number, qsizetype i) const
    {
        return number > 1 && m_columns[i].lastNumber == number - 1;
    }

    /// The section whose steps `line` counts on, where those of the list at hand do not.
    std::optional<qsizetype> sectionCountedOn(const TextLine& line) const
    {
        if (m_sections[m_current].kind != HeadingKind::Ingredients) {
            return std::nullopt;
        }
        const int number = stepNumber(line);
        for (qsizetype i = m_sections.size() - 1; i >= 0 && !countsOn(number, m_current); --i) {
            const bool mayHoldSteps =
                m_sections[i].kind == HeadingKind::None || m_sections[i].kind == HeadingKind::Directions;
            if (mayHoldSteps && countsOn(number, i)) {
                return i;
            }
        }
        return std::nullopt;
    }

    /// With so many lines that begin with an amount a recipe has begun, even without a heading.
    static constexpr int leastAmounts = 3;

    /// The section that a remark stands in, and the remark's type.
    struct Aside
    {
        qsizetype section = 0;
        double relativeHeight = 1;
    };

    int m_amounts = 0;
    std::optional<Aside> m_aside;
    std::optional<TextLine> m_heading;
    /// The heading before, on the same row, and its section.
    std::optional<TextLine> m_beside;
    qsizetype m_besideSection = 0;
    QList<Section> m_sections{Section()};
    QList<Column> m_columns{Column()};
    qsizetype m_current = 0;
    bool m_recipeBegun = false;
};

} // namespace

QList<Section> sectionsOf(const QList<TextLine>& lines)
{
    return Sections().of(lines);
}

} // namespace ovrin
