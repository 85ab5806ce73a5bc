#include "import/document/LineFlow.h"
#include "import/document/LineShape.h"
#include "import/document/RecipeItems.h"
#include "import/document/RecipeTextParser.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace ovrin {

namespace {

/// Tells the paragraphs of one method apart, by the method's own habits.
class Method
{
public:
    explicit Method(const QList<TextLine>& lines)
        : m_lines(lines)
        , m_flow(lines)
    {
        qsizetype bullets = 0;
        qsizetype sentences = 0;
        int expected = 1;
        for (const TextLine& line : lines) {
            bullets += LineShape::hasBullet(line.text) ? 1 : 0;
            sentences += LineShape::endsSentence(line.text) ? 1 : 0;
            const auto number = LineShape::numbered(line.text);
            expected += number && number->number == expected ? 1 : 0;
            m_hasBareNumbers =
                m_hasBareNumbers || (number && number->number == 1 && LineShape::isBareNumber(line.text));
        }
        m_isNumbered = expected > 2 || (expected == 2 && LineShape::numbered(lines.first().text));
        m_isBulleted = bullets >= 2;
        m_isOneLineEach = lines.size() >= 2 && sentences * 20 >= lines.size() * 17;
    }

    bool isNumbered() const { return m_isNumbered; }
    bool isMarked() const { return m_isNumbered || m_isBulleted; }

    /// The number and text of a line that opens step `expected`.
    std::optional<LineShape::Numbered> opens(qsizetype i, int expected) const
    {
        if (!m_isNumbered) {
            return std::nullopt;
        }
        // "9 add the rest" stands apart, as an amount inside a step does not.
        const bool isApart = m_hasBareNumbers && expected > 1 && i > 0 &&
                             (m_lines[i].startsBlock || (m_flow.isPlaced() && m_flow.hadRoom(i)));
        auto number = isApart ? LineShape::counted(m_lines[i].text) : LineShape::numbered(m_lines[i].text);
        // A later part of the method may count from 1 again.
        const bool restarts = number && number->number == 1 && expected > 1 &&
                              !LineShape::isBareNumber(m_lines[i].text) && i > 0 &&
                              LineShape::endsSentence(m_lines[i - 1].text);
        // The number between may be one that the font does not have.
        constexpr int surely = 3;
        const bool skipsOne = number && number->number == expected + 1 && expected > surely &&
                              !LineShape::isBareNumber(m_lines[i].text);
        if (!number || (number->number != expected && !restarts && !skipsOne)) {
            return std::nullopt;
        }
        // "2 Eggs go in" behind an unfinished sentence is an amount.
        if (LineShape::isBareNumber(m_lines[i].text) && i > 0 && !m_lines[i].startsBlock &&
            !LineShape::endsSentence(m_lines[i - 1].text) && !number->rest.isEmpty() && expected == 1) {
            return std::nullopt;
        }
        return number;
    }

    bool startsParagraph(qsizetype i) const
    {
        const TextLine& line = m_lines[i];
        const TextLine& previous = m_lines[i - 1];
        if (LineShape::hasBullet(line.text)) {
            return m_isBulleted;
        }
        if (m_flow.verdict(i) == LineFlow::Verdict::Continues) {
            return false;
        }
        const bool ended = LineShape::endsSentence(previous.text);
        const bool room = m_flow.hadRoom(i);
        const bool jumped = line.page != previous.page;
        const bool apart = line.startsBlock && !jumped && ended;
        const bool mayBreak = m_flow.verdict(i) == LineFlow::Verdict::Begins || m_isOneLineEach || apart ||
                              (room && (ended || line.startsBlock));
        return RecipeTextParser::startsParagraph(line.text, previous.text, mayBreak);
    }

    /// A part's name among the steps ("For the sauce"): short, apart, and no sentence.
    bool isPartHeading(qsizetype i) const
    {
        const TextLine& line = m_lines[i];
        const QString& text = line.text;
        if (i + 1 == m_lines.size() || text.size() > 50 || LineShape::hasBullet(text) ||
            (LineShape::numbered(text) && !text.endsWith(u':')) || !text.front().isUpper()) {
            return false;
        }
        const bool afterEnd = i == 0 || LineShape::endsSentence(m_lines[i - 1].text);
        const bool colon = text.endsWith(u':') && text.count(u' ') < 6;
        const bool capitals =
            LineShape::isAllCapitals(text) && !LineShape::isAllCapitals(m_lines[i + 1].text);
        const bool large = line.relativeHeight >= 1.12 && !LineShape::endsSentence(text);
        return afterEnd && (colon || capitals || large);
    }

private:
    const QList<TextLine>& m_lines;
    LineFlow m_flow;
    bool m_isNumbered = false;
    /// "1 Boil": without a full stop.
    bool m_hasBareNumbers = false;
    bool m_isBulleted = false;
    bool m_isOneLineEach = false;
};

/// Notes that stand among the steps without a heading of their own.
bool isAside(const QString& text)
{
    static const QRegularExpression aside(
        QStringLiteral(
            "^(?:notes?|tips?|cook[’']s (?:note|tip)|chef[’']s (?:note|tip)|hinweis|tipp|anmerkung|"
            "info|remarque|astuce|conseil|nota|consejo|consiglio|dica|uwaga|wskazówka)\\s*:"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    return aside.match(text).hasMatch();
}

QString withoutColon(QString text)
{
    while (text.endsWith(u':')) {
        text.chop(1);
    }
    return text.trimmed();
}

/// A short first line without a full stop, set apart from the step's text: "Step 1" over "Make the dough".
bool isStepTitle(const QString& text, const QString& next)
{
    return text.size() < 45 && !LineShape::endsSentence(text) && !next.isEmpty() && next.front().isUpper() &&
           LineShape::isProse(next);
}

/// Steps that are counted inside one text: "(1) Heat the oven. (2) Mix the eggs"; nothing when they are not.
std::optional<QList<RecipeStep>> runningSteps(const QList<TextLine>& lines)
{
    static const QRegularExpression mark(QStringLiteral("(?:^|\\s)\\((\\d{1,2})\\)\\s+(?=\\S)"));
    constexpr int leastSteps = 2;
    if (!lines.first().text.startsWith(u'(')) {
        return std::nullopt;
    }
    const QString text = RecipeItems::joined(lines);
    QList<QRegularExpressionMatch> counted;
    auto marks = mark.globalMatch(text);
    while (marks.hasNext()) {
        const auto match = marks.next();
        if (match.captured(1).toInt() == counted.size() + 1) {
            counted.append(match);
        }
    }
    if (counted.size() < leastSteps || counted.first().capturedStart() > 0) {
        return std::nullopt;
    }
    QList<RecipeStep> steps;
    for (qsizetype k = 0; k < counted.size(); ++k) {
        const qsizetype begin = counted[k].capturedEnd();
        const qsizetype end = k + 1 < counted.size() ? counted[k + 1].capturedStart() : text.size();
        RecipeStep step;
        step.paragraphs = QStringList{text.mid(begin, end - begin).trimmed()};
        steps.append(step);
    }
    const auto atLineStart = std::count_if(lines.begin(), lines.end(), [](const TextLine& line) {
        return line.text.startsWith(u'(') && LineShape::numbered(line.text);
    });
    return atLineStart < steps.size() ? std::optional(steps) : std::nullopt;
}

} // namespace

QList<RecipeStep> RecipeItems::steps(const QList<TextLine>& lines)
{
    if (lines.isEmpty()) {
        return {};
    }
    if (const auto running = runningSteps(lines)) {
        return *running;
    }
    const Method method(lines);
    QList<RecipeStep> steps;
    std::optional<QString> title;
    int expected = 1;
    const auto open = [&](const QString& text) {
        RecipeStep step;
        step.title = std::exchange(title, std::nullopt);
        step.paragraphs = text.isEmpty() ? QStringList() : QStringList{text};
        steps.append(step);
    };
    bool opened = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString text = LineShape::withoutBullet(lines[i].text).trimmed();
        if (text.isEmpty()) {
            continue;
        }
        if (const auto number = method.opens(i, expected)) {
            expected = number->number + 1;
            open(number->rest);
            opened = true;
        } else if (method.isPartHeading(i)) {
            title = withoutColon(text);
            opened = false;
        } else if (opened && !steps.last().paragraphs.isEmpty() && !method.startsParagraph(i)) {
            QString& last = steps.last().paragraphs.last();
            last = joined(last, text);
        } else if (opened && (steps.last().paragraphs.isEmpty() || method.isNumbered())) {
            steps.last().paragraphs.append(text);
        } else {
            // Text above the first number is an introduction to the method; it is a step of its own.
            open(text);
            opened = true;
        }
    }
    for (RecipeStep& step : steps) {
        step.paragraphs.removeIf(isAside);
        if (!step.title && step.paragraphs.size() > 1 &&
            isStepTitle(step.paragraphs[0], step.paragraphs[1])) {
            step.title = step.paragraphs.takeFirst();
        }
    }
    steps.removeIf([](const RecipeStep& step) { return step.paragraphs.isEmpty(); });
    return steps;
}

} // namespace ovrin
