#include "import/document/PageRows.h"

#include "import/document/LineShape.h"
#include "import/document/RecipeFacts.h"
#include "import/document/RecipeSections.h"

namespace ovrin {

namespace {

/// Two times, or a time and a number of portions, are no amount with its name.
bool isAmountAndName(const QString& a, const QString& b)
{
    const bool amountFirst = LineShape::isBareAmount(a);
    return amountFirst != LineShape::isBareAmount(b) && !RecipeFacts::isFact(amountFirst ? b : a);
}

} // namespace

QList<TextLine> PageRows::sorted(QList<TextLine> lines, const PageMeasure& measure)
{
    for (qsizetype begin = 0; begin < lines.size();) {
        qsizetype end = begin + 1;
        while (end < lines.size() && measure.isSameRow(lines[begin], lines[end])) {
            ++end;
        }
        std::stable_sort(
            lines.begin() + begin, lines.begin() + end,
            [](const TextLine& a, const TextLine& b) { return a.place.left() < b.place.left(); });
        begin = end;
    }
    return lines;
}

QList<TextLine> PageRows::withAmountsJoined(QList<TextLine> lines, const PageMeasure& measure)
{
    QList<TextLine> result;
    for (const TextLine& line : sorted(std::move(lines), measure)) {
        if (!result.isEmpty() && measure.isSameRow(result.last(), line) &&
            line.place.left() > result.last().place.right() &&
            isAmountAndName(result.last().text, line.text)) {
            TextLine& cell = result.last();
            // A tall number does not make the type of its text larger.
            cell.relativeHeight =
                line.text.size() > cell.text.size() ? line.relativeHeight : cell.relativeHeight;
            cell.text += u' ' + line.text;
            cell.place |= line.place;
        } else {
            result.append(line);
        }
    }
    return result;
}

QList<TextLine> PageRows::ofTable(QList<TextLine> lines, const PageMeasure& measure)
{
    lines = withAmountsJoined(std::move(lines), measure);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        lines[i].startsBlock = i == 0;
        lines[i].columnRight = 2;
    }
    return lines;
}

bool PageRows::isTable(const QList<TextLine>& left, const QList<TextLine>& right, const PageMeasure& measure)
{
    const auto amounts = [](const QList<TextLine>& lines) {
        return std::count_if(lines.begin(), lines.end(),
                             [](const TextLine& line) { return LineShape::isBareAmount(line.text); }) *
                   5 >=
               lines.size() * 4;
    };
    qsizetype pairs = 0;
    for (const TextLine& cell : right) {
        pairs += std::any_of(left.begin(), left.end(),
                             [&](const TextLine& other) { return measure.isSameRow(cell, other); });
    }
    return amounts(left) != amounts(right) && pairs * 5 >= std::min(left.size(), right.size()) * 4;
}

bool PageRows::isLabels(const QList<TextLine>& lines)
{
    const auto labels = std::count_if(lines.begin(), lines.end(), [](const TextLine& line) {
        return RecipeFacts::isBareLabel(line.text) || headingOf(line.text).kind != HeadingKind::None;
    });
    return labels * 5 >= lines.size() * 4;
}

} // namespace ovrin
