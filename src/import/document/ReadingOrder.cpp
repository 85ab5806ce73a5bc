#include "import/document/DocumentTextReader.h"
#include "import/document/PageMeasure.h"

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cmath>

namespace ovrin {

namespace {

constexpr int leastBoxesPerSide = 3;
constexpr int crossingPenalty = 3;

double medianHeight(const QList<TextBox>& boxes)
{
    std::vector<double> heights;
    heights.reserve(boxes.size());
    for (const TextBox& box : boxes) {
        heights.push_back(box.rect.height());
    }
    return medianOf(std::move(heights));
}

void sortByTop(QList<TextBox>& boxes)
{
    std::stable_sort(boxes.begin(), boxes.end(),
                     [](const TextBox& a, const TextBox& b) { return a.rect.top() < b.rect.top(); });
}

/// The leftmost of the best vertical lines between two columns; nothing on a page of one column.
std::optional<double> columnSplit(const QList<TextBox>& boxes)
{
    std::optional<double> best;
    qsizetype bestScore = 0;
    for (int step = 0; step <= 50; ++step) {
        const double x = 0.25 + step * 0.01;
        qsizetype left = 0;
        qsizetype right = 0;
        for (const TextBox& box : boxes) {
            left += box.rect.right() < x ? 1 : 0;
            right += box.rect.left() > x ? 1 : 0;
        }
        const qsizetype crossing = boxes.size() - left - right;
        const qsizetype score = std::min(left, right) - crossingPenalty * crossing;
        if (std::min(left, right) >= leastBoxesPerSide && score > bestScore) {
            best = x;
            bestScore = score;
        }
    }
    return best;
}

double top(const DocumentTextReader::Block& block)
{
    return block.boxes.isEmpty() ? 0 : block.boxes.first().rect.top();
}

/// Blocks that begin at about the same height are read left column first; a spanning block stays where its
/// height puts it. A pass that swaps nothing ends it: every swap lessens the number of pairs out of order.
void readLeftColumnFirst(QList<DocumentTextReader::Block>& blocks, double typicalHeight)
{
    for (bool swapped = true; swapped;) {
        swapped = false;
        for (qsizetype i = 0; i + 1 < blocks.size(); ++i) {
            const DocumentTextReader::Block& a = blocks[i];
            const DocumentTextReader::Block& b = blocks[i + 1];
            if (top(b) - top(a) < 3 * typicalHeight && b.column != DocumentTextReader::Block::spanning &&
                a.column > b.column) {
                blocks.swapItemsAt(i, i + 1);
                swapped = true;
            }
        }
    }
}

QList<TextBox> ordered(QList<TextBox> boxes, double typicalHeight)
{
    const std::optional<double> split = columnSplit(boxes);
    if (!split) {
        sortByTop(boxes);
        return boxes;
    }
    QList<TextBox> left;
    QList<TextBox> right;
    QList<DocumentTextReader::Block> spanning;
    for (const TextBox& box : boxes) {
        if (box.rect.right() < *split) {
            left.append(box);
        } else if (box.rect.left() > *split) {
            right.append(box);
        } else {
            spanning.append({DocumentTextReader::Block::spanning, {box}});
        }
    }
    QList<DocumentTextReader::Block> blocks = DocumentTextReader::blocksByGap(left, 0, typicalHeight) +
                                              DocumentTextReader::blocksByGap(right, 1, typicalHeight) +
                                              spanning;
    std::stable_sort(blocks.begin(), blocks.end(),
                     [](const auto& a, const auto& b) { return top(a) < top(b); });
    readLeftColumnFirst(blocks, typicalHeight);

    QList<TextBox> sequence;
    for (const DocumentTextReader::Block& block : blocks) {
        sequence += block.boxes;
    }
    return sequence;
}

/// Text recognition reads the clock and portion icons in front of numbers as these signs; in front of a year
/// one of them is its own.
QString withoutIcons(QString text)
{
    static const QRegularExpression icons(
        QStringLiteral("[\u00a9\u00ae\u2299\u25f7\u23f1\u23f2]\\s*(?=\\d)(?!(?:19|20)\\d\\d\\b)"),
        QRegularExpression::UseUnicodePropertiesOption);
    return text.remove(icons);
}

} // namespace

QList<DocumentTextReader::Block> DocumentTextReader::blocksByGap(QList<TextBox> boxes, int column,
                                                                 double typicalHeight)
{
    sortByTop(boxes);
    QList<Block> blocks;
    for (const TextBox& box : boxes) {
        const bool joins = !blocks.isEmpty() &&
                           box.rect.top() - blocks.last().boxes.last().rect.bottom() < 5 * typicalHeight;
        if (!joins) {
            blocks.append(Block{column, {}});
        }
        blocks.last().boxes.append(box);
    }
    return blocks;
}

QList<TextLine> DocumentTextReader::readingOrder(const QList<TextBox>& boxes, int page)
{
    if (boxes.isEmpty()) {
        return {};
    }
    const double typical = medianHeight(boxes);
    QList<TextLine> lines;
    double previousBottom = 0;
    for (const TextBox& box : ordered(boxes, typical)) {
        const double gap = box.rect.top() - previousBottom;
        lines.append({withoutIcons(box.text), lines.isEmpty() || gap > 0.9 * typical || gap < -typical,
                      box.rect.height() / (typical <= 0.0001 ? 0.0001 : typical), page, box.rect, 0,
                      box.drawn});
        previousBottom = box.rect.bottom();
    }
    return lines;
}

} // namespace ovrin
