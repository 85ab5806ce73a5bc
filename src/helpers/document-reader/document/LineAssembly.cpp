#include "helpers/document-reader/document/LineAssembly.h"

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace ovrin::documentreader {

namespace {

/// Blank spaces, in heights of the line: one wider than between words, one that still lies within a line, and
/// the widest between a cell and its text.
constexpr double ampleSpace = 0.5;
constexpr double wideSpace = 0.9;
constexpr double cellSpace = 9;
/// How far, in heights, the boxes of neighbours may reach into each other.
constexpr double deepestOverlap = 0.6;
/// How far apart, in heights, the left edges of one column's texts may lie.
constexpr double alignment = 0.25;

bool onOneLine(const QRectF& a, const QRectF& b)
{
    const double overlap = std::min(a.bottom(), b.bottom()) - std::max(a.top(), b.top());
    return overlap > 0.6 * std::min(a.height(), b.height());
}

/// "1", "2.", "•", "200 g", "1 1/2 cups", "½": what stands in front of a text.
bool isLeadingCell(const QString& text)
{
    static const QRegularExpression cell(
        QStringLiteral("^(?:[•·▢☐□○●▪*–-]|(?:step )?\\d{1,2}[.):]?|"
                       "[\\d½¼¾⅓⅔⅛⅜⅝⅞][\\d\\s./,–-]*[½¼¾⅓⅔⅛⅜⅝⅞]?\\s*\\p{L}{0,12}\\.?)$"),
        QRegularExpression::UseUnicodePropertiesOption | QRegularExpression::CaseInsensitiveOption);
    // How long, and for how many.
    static const QRegularExpression fact(
        QStringLiteral(
            "\\b(?:min(?:s|utes?|uten)?|h|hrs?|hours?|std|stunden?|heures?|horas?|people|persons?|personen|"
            "personnes|personas|persone|servings?|portion(?:s|en)?)\\.?$"),
        QRegularExpression::CaseInsensitiveOption);
    return text.size() <= 18 && cell.match(text).hasMatch() && !fact.match(text).hasMatch();
}

bool startsWithNumberOrMark(const QString& text)
{
    static const QRegularExpression start(QStringLiteral("^[\\d½¼¾⅓⅔⅛⅜⅝⅞•▢☐]"),
                                          QRegularExpression::UseUnicodePropertiesOption);
    return start.match(text).hasMatch();
}

void append(Run& line, const Run& more)
{
    // Signs from another font follow without a space: the text layer parts them all the same.
    constexpr double narrowestSpace = 0.08;
    const bool touches = more.box.left() - line.box.right() < narrowestSpace * line.box.height();
    const bool isCell = isLeadingCell(line.text) || isLeadingCell(more.text);
    line.text += (touches && !isCell ? QString() : QStringLiteral(" ")) + more.text;
    const double top = line.box.top();
    const double bottom = line.box.bottom();
    line.box |= more.box;
    // A taller cell (a large step number) does not make the line's type larger.
    if (more.text.size() > line.text.size() - more.text.size()) {
        line.box.setTop(more.box.top());
        line.box.setBottom(more.box.bottom());
    } else {
        line.box.setTop(top);
        line.box.setBottom(bottom);
    }
}

/// For each run the nearest one to its right on the same line.
QList<qsizetype> rightNeighbours(const QList<Run>& runs)
{
    QList<qsizetype> order(runs.size());
    for (qsizetype i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    std::sort(order.begin(), order.end(),
              [&](qsizetype a, qsizetype b) { return runs[a].box.top() < runs[b].box.top(); });
    double tallest = 0;
    for (const Run& run : runs) {
        tallest = std::max(tallest, run.box.height());
    }
    QList<qsizetype> neighbours(runs.size(), -1);
    for (qsizetype i = 0; i < order.size(); ++i) {
        for (qsizetype j = i + 1; j < order.size(); ++j) {
            const Run& a = runs[order[i]];
            const Run& b = runs[order[j]];
            if (b.box.top() > a.box.top() + tallest) {
                break;
            }
            if (!onOneLine(a.box, b.box)) {
                continue;
            }
            const bool aIsLeft = a.box.left() <= b.box.left();
            const qsizetype left = aIsLeft ? order[i] : order[j];
            const qsizetype right = aIsLeft ? order[j] : order[i];
            qsizetype& nearest = neighbours[left];
            if (nearest < 0 || runs[right].box.left() < runs[nearest].box.left()) {
                nearest = right;
            }
        }
    }
    return neighbours;
}

/// Whether the text at `right` belongs to a column of texts that have cells in front of them: among the texts
/// that begin below and above it, most have a leading cell to their left and few begin with a number.
bool belongsToCells(qsizetype right, const QList<Run>& runs, const QList<qsizetype>& neighbours)
{
    qsizetype cells = 0;
    qsizetype others = 0;
    qsizetype numbered = 0;
    for (qsizetype left = 0; left < runs.size(); ++left) {
        const qsizetype text = neighbours[left];
        if (text < 0 ||
            std::abs(runs[text].box.left() - runs[right].box.left()) > alignment * runs[right].box.height()) {
            continue;
        }
        (isLeadingCell(runs[left].text) ? cells : others) += 1;
        numbered += startsWithNumberOrMark(runs[text].text) ? 1 : 0;
    }
    return cells > others && numbered * 3 <= cells;
}

/// Whether the run at `right` begins where the lines of a column do: others begin there that nothing stands
/// close before. What numbers a column's lines hangs into the gutter, which leaves little of it.
bool beginsColumn(qsizetype right, const QList<Run>& runs, const std::vector<bool>& hasNeighbour)
{
    constexpr int leastOthers = 2;
    int others = 0;
    for (qsizetype i = 0; i < runs.size() && others < leastOthers; ++i) {
        const double shift = std::abs(runs[i].box.left() - runs[right].box.left());
        others += i != right && !hasNeighbour[i] && shift < alignment * runs[right].box.height() ? 1 : 0;
    }
    return others == leastOthers;
}

bool isLetter(const Run& run)
{
    return run.text.size() == 1 && run.text.front().isLetter();
}

/// Words set with space between their letters ("S O U P"), which come a letter at a time, put together.
QList<Run> withSpacedLettersJoined(const QList<Run>& runs)
{
    constexpr qsizetype leastLetters = 4;
    constexpr double widestLetterSpace = 2.5;
    const QList<qsizetype> neighbours = rightNeighbours(runs);
    const auto follows = [&](qsizetype left) {
        const qsizetype right = neighbours[left];
        return right >= 0 && isLetter(runs[left]) && isLetter(runs[right]) &&
               std::abs(runs[left].box.height() - runs[right].box.height()) < 0.2 * runs[left].box.height() &&
               runs[right].box.left() - runs[left].box.right() < widestLetterSpace * runs[left].box.height();
    };
    QList<bool> isTail(runs.size(), false);
    for (qsizetype left = 0; left < runs.size(); ++left) {
        if (follows(left)) {
            isTail[neighbours[left]] = true;
        }
    }
    QList<bool> taken(runs.size(), false);
    QList<Run> result;
    for (qsizetype first = 0; first < runs.size(); ++first) {
        if (isTail[first] || taken[first]) {
            continue;
        }
        QList<qsizetype> chain{first};
        while (follows(chain.last()) && !taken[neighbours[chain.last()]]) {
            chain.append(neighbours[chain.last()]);
            taken[chain.last()] = true;
        }
        if (chain.size() < leastLetters) {
            for (const qsizetype i : chain) {
                result.append(runs[i]);
            }
            continue;
        }
        QList<Run> letters;
        Run word = runs[first];
        for (const qsizetype i : chain) {
            letters.append(runs[i]);
            word.box |= runs[i].box;
        }
        word.text = spacedText(letters).value_or(word.text);
        result.append(word);
    }
    return result;
}

/// A large first letter beside the lines that it begins, put in front of the first of them.
QList<Run> withInitialsJoined(QList<Run> runs)
{
    constexpr double leastRise = 1.5;
    // No page is made of initials.
    constexpr qsizetype mostInitials = 64;
    const auto isInitial = [](const Run& run) { return isLetter(run) && run.text.front().isUpper(); };
    if (std::count_if(runs.begin(), runs.end(), isInitial) > mostInitials) {
        return runs;
    }
    for (qsizetype i = 0; i < runs.size(); ++i) {
        const Run initial = runs[i];
        if (!isInitial(initial)) {
            continue;
        }
        qsizetype first = -1;
        for (qsizetype j = 0; j < runs.size(); ++j) {
            const QRectF& box = runs[j].box;
            const double gap = box.left() - initial.box.right();
            const bool isBeside = gap > -0.6 * box.height() && gap < 1.2 * box.height() &&
                                  box.height() * leastRise < initial.box.height() &&
                                  box.center().y() > initial.box.top() &&
                                  box.center().y() < initial.box.bottom();
            if (j != i && isBeside && (first < 0 || box.top() < runs[first].box.top())) {
                first = j;
            }
        }
        if (first < 0 || !runs[first].text.front().isLower()) {
            continue;
        }
        // "A large pan": the letter is a word when what follows can begin one.
        static const QRegularExpression ownWord(QStringLiteral("^[b-df-hj-np-tv-z][aeiou]\\p{L}"));
        const bool isWord = initial.text == u"A" && ownWord.match(runs[first].text).hasMatch();
        runs[first].text.prepend(isWord ? initial.text + u' ' : initial.text);
        runs[first].box.setLeft(initial.box.left());
        runs.removeAt(i);
        --i;
    }
    return runs;
}

/// Edges of the lines that fill a justified column, in points.
struct Measure
{
    double left = 0;
    double right = 0;

    bool begins(const Run& run) const { return std::abs(run.box.left() - left) < 1; }
    bool ends(const Run& run) const { return std::abs(run.box.right() - right) < 1; }
};

/// The measures that two lines or more fill.
QList<Measure> justifiedMeasures(const QList<Run>& runs)
{
    constexpr qsizetype leastLetters = 12;
    constexpr qsizetype mostMeasures = 16;
    QList<Measure> seen;
    QList<Measure> measures;
    for (const Run& run : runs) {
        const auto isFilled = [&](const Measure& measure) {
            return measure.begins(run) && measure.ends(run);
        };
        if (run.text.size() < leastLetters || std::any_of(measures.begin(), measures.end(), isFilled)) {
            continue;
        }
        if (std::any_of(seen.begin(), seen.end(), isFilled)) {
            measures.append({run.box.left(), run.box.right()});
        } else if (seen.size() < mostMeasures * mostMeasures) {
            seen.append({run.box.left(), run.box.right()});
        }
    }
    return measures.first(std::min(measures.size(), mostMeasures));
}

/// Few words in a justified line stand far apart: those from one edge of the measure to the other are one
/// line.
void joinJustified(const QList<Run>& runs, const QList<qsizetype>& neighbours, QList<bool>& joins)
{
    constexpr double widestSpace = 4;
    const QList<Measure> measures = justifiedMeasures(runs);
    for (qsizetype first = 0; first < runs.size(); ++first) {
        for (const Measure& measure : measures) {
            qsizetype last = first;
            // All spaces of a justified line are alike: no run between them has one of its own, but for the
            // step's number.
            const auto isNear = [&](qsizetype left) {
                const qsizetype right = neighbours[left];
                return right >= 0 && !runs[right].beginsStep && !runs[right].text.contains(u' ') &&
                       runs[left].text.count(u' ') <= (left == first ? 1 : 0) &&
                       runs[right].box.right() < measure.right + 1 &&
                       runs[right].box.left() - runs[left].box.right() >
                           -deepestOverlap * runs[left].box.height() &&
                       runs[right].box.left() - runs[left].box.right() <
                           widestSpace * runs[left].box.height();
            };
            constexpr int mostWords = 64;
            for (int words = 1; words < mostWords && measure.begins(runs[first]) &&
                                !measure.ends(runs[last]) && isNear(last);
                 ++words) {
                last = neighbours[last];
            }
            if (last == first || !measure.ends(runs[last])) {
                continue;
            }
            for (qsizetype i = first; i != last; i = neighbours[i]) {
                joins[i] = true;
            }
            break;
        }
    }
}

} // namespace

QList<Run> assembledLines(QList<Run> runs)
{
    runs = withInitialsJoined(withSpacedLettersJoined(runs));
    const QList<qsizetype> neighbours = rightNeighbours(runs);
    QList<bool> joins(runs.size(), false);
    const auto space = [&](qsizetype left) {
        const Run& right = runs[neighbours[left]];
        return (right.box.left() - runs[left].box.right()) /
               std::min(runs[left].box.height(), right.box.height());
    };
    std::vector<bool> hasNeighbour(runs.size(), false);
    for (qsizetype left = 0; left < runs.size(); ++left) {
        if (neighbours[left] >= 0 && space(left) < wideSpace) {
            hasNeighbour[neighbours[left]] = true;
        }
    }
    for (qsizetype left = 0; left < runs.size(); ++left) {
        const qsizetype right = neighbours[left];
        if (right < 0 || runs[right].beginsStep) {
            continue;
        }
        const double gap = space(left);
        const auto isCell = [&] { return isLeadingCell(runs[left].text); };
        // What begins where the other has not ended by far stands above or below it.
        joins[left] = gap > -deepestOverlap &&
                      (gap < ampleSpace ||
                       (gap < wideSpace && (isCell() || !beginsColumn(right, runs, hasNeighbour))) ||
                       (gap < cellSpace && isCell() && belongsToCells(right, runs, neighbours)));
    }
    joinJustified(runs, neighbours, joins);
    QList<bool> taken(runs.size(), false);
    QList<bool> isTail(runs.size(), false);
    for (qsizetype left = 0; left < runs.size(); ++left) {
        // Of two runs that claim the same neighbour, the first one has it.
        if (joins[left] && !isTail[neighbours[left]] && neighbours[left] != left) {
            isTail[neighbours[left]] = true;
        } else {
            joins[left] = false;
        }
    }
    QList<Run> lines;
    for (qsizetype first = 0; first < runs.size(); ++first) {
        if (isTail[first] || taken[first]) {
            continue;
        }
        Run line = runs[first];
        taken[first] = true;
        for (qsizetype i = first; joins[i] && !taken[neighbours[i]]; i = neighbours[i]) {
            append(line, runs[neighbours[i]]);
            taken[neighbours[i]] = true;
        }
        lines.append(line);
    }
    return lines;
}

std::optional<QString> spacedText(const QList<Run>& letters)
{
    constexpr qsizetype leastLetters = 4;
    constexpr double leastSpace = 0.06;
    constexpr double wordSpace = 1.5;
    if (letters.size() < leastLetters ||
        std::count_if(letters.begin(), letters.end(), isLetter) * 4 < letters.size() * 3) {
        return std::nullopt;
    }
    std::vector<double> gaps;
    for (qsizetype i = 1; i < letters.size(); ++i) {
        gaps.push_back(letters[i].box.left() - letters[i - 1].box.right());
    }
    std::vector<double> sorted = gaps;
    std::sort(sorted.begin(), sorted.end());
    // Above the usual gap the widest step from one to the next parts letters from words.
    const std::size_t middle = (sorted.size() - 1) / 2;
    if (sorted[middle] < leastSpace * letters.first().box.height()) {
        return std::nullopt;
    }
    double widestLetterSpace = sorted.back();
    double widestStep = 0;
    for (std::size_t i = middle + 1; i < sorted.size(); ++i) {
        const double step = sorted[i] - sorted[i - 1];
        if (step > widestStep && sorted[i] > wordSpace * sorted[middle]) {
            widestStep = step;
            widestLetterSpace = sorted[i - 1];
        }
    }
    QString text = letters.first().text;
    for (qsizetype i = 1; i < letters.size(); ++i) {
        const bool partsWords = gaps[static_cast<std::size_t>(i - 1)] > widestLetterSpace;
        text += (partsWords ? QStringLiteral(" ") : QString()) + letters[i].text;
    }
    return text;
}

QString withoutLigatures(const QString& text)
{
    static constexpr std::array letters{u"ff", u"fi", u"fl", u"ffi", u"ffl", u"st", u"st"};
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        if (c.unicode() >= 0xFB00 && c.unicode() <= 0xFB06) {
            result += QStringView(letters.at(c.unicode() - 0xFB00));
        } else {
            result += c;
        }
    }
    return result;
}

} // namespace ovrin::documentreader
