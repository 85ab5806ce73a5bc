#include "import/document/ListRemarks.h"

#include "import/document/LineShape.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace ovrin {

namespace {

bool isEntry(const QString& text)
{
    return LineShape::hasAmountOrBullet(text) || LineShape::startsWithAmountWord(text);
}

/// "Read it all before you begin.", "Enjoy!", but not "salt, ca.", "or a can of tuna (drained)." nor the end
/// of a list that is set as a text ("cups milk; salt; pepper.").
bool endsRemark(const QString& text)
{
    constexpr qsizetype leastSpaces = 3;
    return !isEntry(text) && (text.endsWith(u'!') || (LineShape::endsSentence(text) && !text.endsWith(u':') &&
                                                      !text.endsWith(u')') && !text.contains(u';') &&
                                                      text.count(u' ') >= leastSpaces));
}

/// Whether somebody speaks: has a word of sentences that no entry has ("before you begin.").
bool speaks(const QString& text)
{
    static const QRegularExpression word(
        QStringLiteral(
            "\\b(?:you|I|it|is|are|was|were|we|they|there|sie|ich|ist|sind|wir|vous|je|est|nous|sont|"
            "usted|está|sono|você|jest|är|vi|jeg|jag)\\b"),
        QRegularExpression::UseUnicodePropertiesOption);
    return word.match(text).hasMatch();
}

} // namespace

LineRange withoutRemarks(const QList<TextLine>& list)
{
    constexpr qsizetype longestIntroduction = 8;
    constexpr qsizetype longestRemark = 4;
    LineRange range{0, list.size()};
    // "Enjoy!"
    const auto cutCheers = [&] {
        while (range.end > 1 && list[range.end - 1].text.endsWith(u'!') &&
               !isEntry(list[range.end - 1].text)) {
            --range.end;
        }
    };
    cutCheers();
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
    for (qsizetype i = 0;
         i < std::min(longestIntroduction, list.size()) && !LineShape::hasAmountOrBullet(list[i].text); ++i) {
        range.begin = endsRemark(list[i].text) ? i + 1 : range.begin;
    }
    QString remark;
    for (qsizetype i = range.end - 1; i > range.begin && i + longestRemark >= list.size(); --i) {
        if (isEntry(list[i].text)) {
            break;
        }
        const bool goesOn = !remark.isEmpty() && remark.front().isLower();
        remark = goesOn ? list[i].text + u' ' + remark : list[i].text;
        if ((list[i].startsBlock || speaks(remark)) && remark.front().isUpper() && endsRemark(remark)) {
            range.end = i;
            remark.clear();
        }
    }
    cutCheers();
    return range;
}

} // namespace ovrin
