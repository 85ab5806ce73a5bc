#include "import/document/ListRemarks.h"

#include "import/document/LineShape.h"
#include "import/document/RecipeWords.h"

#include <algorithm>

namespace ovrin {

namespace {

bool hasAmountOrBullet(const QString& text)
{
    return LineShape::startsWithAmount(text) || LineShape::hasBullet(text);
}

bool isEntry(const QString& text)
{
    return hasAmountOrBullet(text) || RecipeWords::amountWords().contains(text.section(u' ', 0, 0).toLower());
}

/// "Read it all before you begin.", "Enjoy!", but not "salt, ca." nor "or a can of tuna (drained)."
bool endsRemark(const QString& text)
{
    constexpr qsizetype leastSpaces = 3;
    return !isEntry(text) &&
           (text.endsWith(u'!') || (LineShape::endsSentence(text) && !text.endsWith(u':') &&
                                    !text.endsWith(u')') && text.count(u' ') >= leastSpaces));
}

} // namespace

LineRange withoutRemarks(const QList<TextLine>& list)
{
    constexpr qsizetype longestIntroduction = 8;
    constexpr qsizetype longestRemark = 4;
    LineRange range{0, list.size()};
    const auto isEntryLine = [](const TextLine& line) { return isEntry(line.text); };
    const auto isSentence = [](const TextLine& line) {
        return LineShape::endsSentence(line.text) && !line.text.endsWith(u':');
    };
    const auto first = std::find_if(list.begin(), list.end(), isEntryLine);
    const auto last = std::find_if(list.rbegin(), list.rend(), isEntryLine).base();
    // Without an amount anywhere, remarks cannot be told from entries.
    if (first == list.end() || std::count_if(first, last, isSentence) * 4 > last - first ||
        std::count_if(list.begin(), list.end(), isSentence) * 2 > list.size()) {
        return range;
    }
    for (qsizetype i = 0; i < std::min(longestIntroduction, list.size()) && !hasAmountOrBullet(list[i].text);
         ++i) {
        range.begin = endsRemark(list[i].text) ? i + 1 : range.begin;
    }
    for (qsizetype i = list.size() - 1; i > range.begin && i + longestRemark >= list.size(); --i) {
        const bool isApart = list[i].startsBlock || list[i].text.endsWith(u'!');
        if (isEntry(list[i].text)) {
            break;
        }
        range.end = isApart && list[i].text.front().isUpper() && endsRemark(list[i].text) ? i : range.end;
    }
    return range;
}

} // namespace ovrin
