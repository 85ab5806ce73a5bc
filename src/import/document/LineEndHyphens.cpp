#include "import/document/LineEndHyphens.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

namespace ovrin {

namespace {

constexpr QChar softHyphen(0x00AD);
constexpr QChar ownHyphen(0x2011);

/// Whether line `i` goes on in the next one with a small letter.
bool goesOn(const QList<TextLine>& lines, qsizetype i)
{
    return i + 1 < lines.size() && !lines[i + 1].text.isEmpty() && lines[i + 1].text.front().isLower();
}

/// The words of the lines, those that a line's end divides left out, in small letters.
QSet<QString> wordsOf(const QList<TextLine>& lines)
{
    static const QRegularExpression word(QStringLiteral("\\p{L}+(?:-\\p{L}+)*"),
                                         QRegularExpression::UseUnicodePropertiesOption);
    QSet<QString> words;
    bool continues = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString text = lines[i].text.toLower();
        const bool isDivided = LineEndHyphens::isAtEndOf(text);
        auto matches = word.globalMatch(text);
        while (matches.hasNext()) {
            const auto match = matches.next();
            const bool isRest = continues && match.capturedStart() == 0;
            const bool isBegun = isDivided && match.capturedEnd() >= text.size() - 1;
            if (!isRest && !isBegun) {
                words.insert(match.captured());
            }
        }
        continues = isDivided;
    }
    return words;
}

/// Whether so few of the lines that go on end in a hyphen that nobody divides words here.
bool areWordsKeptWhole(const QList<TextLine>& lines)
{
    constexpr qsizetype leastLines = 12;
    constexpr qsizetype linesAHyphen = 12;
    qsizetype wrapped = 0;
    qsizetype hyphens = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        wrapped += goesOn(lines, i) ? 1 : 0;
        hyphens += goesOn(lines, i) && LineEndHyphens::isAtEndOf(lines[i].text) ? 1 : 0;
    }
    return wrapped >= leastLines && hyphens * linesAHyphen <= wrapped;
}

} // namespace

bool LineEndHyphens::isAtEndOf(const QString& text)
{
    return text.size() > 2 && (text.endsWith(u'-') || text.endsWith(QChar(0x2010))) &&
           text[text.size() - 2].isLetter();
}

QList<TextLine> LineEndHyphens::told(QList<TextLine> lines)
{
    const QSet<QString> words = wordsOf(lines);
    const bool areWhole = areWordsKeptWhole(lines);
    static const QRegularExpression notLetters(QStringLiteral("[^\\p{L}-].*$"),
                                               QRegularExpression::UseUnicodePropertiesOption);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (!isAtEndOf(lines[i].text) || !goesOn(lines, i)) {
            continue;
        }
        QString& text = lines[i].text;
        const QString left = text.chopped(1).section(u' ', -1).toLower();
        const QString right = lines[i + 1].text.toLower().remove(notLetters);
        constexpr qsizetype shortestWord = 3;
        const bool areBothWords = left.size() >= shortestWord && right.size() >= shortestWord &&
                                  words.contains(left) && words.contains(right);
        if (words.contains(left + right)) {
            text.back() = softHyphen;
        } else if (words.contains(left + u'-' + right) || areBothWords || areWhole) {
            text.back() = ownHyphen;
        }
    }
    return lines;
}

} // namespace ovrin
