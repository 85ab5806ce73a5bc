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
    if (c.script() == QChar::Script_Han) {
        return 1;
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

    void add(const Word& word)
    {
        letters += word.text.size();
        width += word.box.width();
        for (const QChar c : word.text) {
            ems += usualWidth(c);
        }
    }

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

/// For each word the type of the line that it stands on, as far as the line's words are of its height.
std::vector<Type> linesOf(const std::vector<Word>& words)
{
    std::vector<bool> follows(words.size(), false);
    const auto goesOn = [&](qsizetype i) {
        return words[i].next >= 0 && heightKey(words[i]) == heightKey(words[words[i].next]);
    };
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (goesOn(static_cast<qsizetype>(i))) {
            follows[words[i].next] = true;
        }
    }
    std::vector<Type> lines(words.size());
    for (std::size_t first = 0; first < words.size(); ++first) {
        if (follows[first]) {
            continue;
        }
        Type line;
        std::vector<std::size_t> own;
        for (auto i = static_cast<qsizetype>(first);; i = words[i].next) {
            line.add(words[i]);
            own.push_back(i);
            if (!goesOn(i)) {
                break;
            }
        }
        for (const std::size_t i : own) {
            lines[i] = line;
        }
    }
    return lines;
}

} // namespace

std::vector<Word> withTrueHeights(std::vector<Word> words)
{
    // A word or two say little about a font: its other sizes are off by the same factor.
    constexpr qsizetype leastLetters = 6;
    constexpr qsizetype leastLettersOfLine = 4;
    // What fonts differ by.
    constexpr double usualSpread = 1.4;
    // In heights of the line: further apart stand words of two columns.
    constexpr double widestSpace = 1;
    std::map<long, Type> types;
    for (const Word& word : words) {
        types[heightKey(word)].add(word);
    }
    const std::vector<Type> lines = linesOf(words);
    double commonFactor = 1;
    qsizetype most = 0;
    for (const auto& [key, type] : types) {
        if (type.letters > most && key > 0) {
            most = type.letters;
            commonFactor = type.factor(static_cast<double>(key) / keysPerPoint);
        }
    }
    for (std::size_t i = 0; i < words.size(); ++i) {
        Word& word = words[i];
        // Some fonts give one height to all their sizes.
        const Type& common = types[heightKey(word)];
        const double change = lines[i].width * common.ems / (lines[i].ems * common.width);
        const bool isOther = lines[i].letters >= leastLettersOfLine && lines[i].width > 0 &&
                             (change > usualSpread || change * usualSpread < 1);
        const Type& type = isOther ? lines[i] : common;
        const double height = word.box.height();
        const double factor = type.letters < leastLetters || height <= 0 ? commonFactor : type.factor(height);
        if (factor > usualSpread || factor * usualSpread < 1) {
            const double less = height * (1 - factor) / 2;
            word.box.adjust(0, less, 0, -less);
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
