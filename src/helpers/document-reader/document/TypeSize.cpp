#include "helpers/document-reader/document/TypeSize.h"

#include <cmath>
#include <map>

namespace ovrin::documentreader {

namespace {

/// Height of a line of text in a font that does say it, in ems.
constexpr double usualHeight = 1.2;

/// Width of a sign in an average text font, in ems.
double usualWidth(QChar c)
{
    if (QStringView(u"iIjlftr.,:;'’!|()[]/- ").contains(c)) {
        return 0.32;
    }
    if (QStringView(u"mwMW").contains(c)) {
        return 0.85;
    }
    return c.isUpper() ? 0.68 : 0.55;
}

struct Type
{
    qsizetype letters = 0;
    double width = 0;
    double ems = 0;

    /// What the height of its words is to be multiplied with.
    double factor(double height) const { return usualHeight * width / ems / height; }
};

/// Heights that differ by less than a part of a point are one.
constexpr double keysPerPoint = 20;

/// Words of one height are in one font and size.
long heightKey(const Word& word)
{
    return std::lround(word.box.height() * keysPerPoint);
}

} // namespace

std::vector<Word> withTrueHeights(std::vector<Word> words)
{
    // A word or two say little about a font: its other sizes are off by the same factor.
    constexpr qsizetype leastLetters = 6;
    // What fonts differ by.
    constexpr double usualSpread = 1.4;
    // In heights of the line: further apart stand words of two columns.
    constexpr double widestSpace = 1;
    std::map<long, Type> types;
    for (const Word& word : words) {
        Type& type = types[heightKey(word)];
        type.letters += word.text.size();
        type.width += word.box.width();
        for (const QChar c : word.text) {
            type.ems += usualWidth(c);
        }
    }
    double commonFactor = 1;
    qsizetype most = 0;
    for (const auto& [key, type] : types) {
        if (type.letters > most && key > 0) {
            most = type.letters;
            commonFactor = type.factor(static_cast<double>(key) / keysPerPoint);
        }
    }
    for (Word& word : words) {
        const Type& type = types[heightKey(word)];
        const double height = word.box.height();
        const double factor = type.letters < leastLetters || height <= 0 ? commonFactor : type.factor(height);
        if (factor > usualSpread || factor * usualSpread < 1) {
            const double change = height * (1 - factor) / 2;
            word.box.adjust(0, change, 0, -change);
        }
    }
    for (Word& word : words) {
        if (word.next >= 0 &&
            words[word.next].box.left() - word.box.right() > widestSpace * word.box.height()) {
            word.next = -1;
            word.hasSpaceAfter = false;
        }
    }
    return words;
}

} // namespace ovrin::documentreader
