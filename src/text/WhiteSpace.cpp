#include "text/WhiteSpace.h"

namespace ovrin::WhiteSpace {

namespace {

template<typename Predicate>
QStringView trimmedOf(QStringView text, Predicate isTrimmed)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && isTrimmed(text[start].unicode()))
        ++start;
    while (end > start && isTrimmed(text[end - 1].unicode()))
        --end;
    return text.sliced(start, end - start);
}

} // namespace

QStringView trimmed(QStringView text)
{
    return trimmedOf(text, isWhiteSpace);
}

QStringView trimmedSpaces(QStringView text)
{
    return trimmedOf(text, isSpaceOrTab);
}

QString withUnixLineBreaks(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

QStringList lines(QStringView text)
{
    QStringList result;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isNewline(text[i].unicode()))
            continue;
        result << text.sliced(start, i - start).toString();
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            ++i;
        start = i + 1;
    }
    result << text.sliced(start).toString();
    return result;
}

} // namespace ovrin::WhiteSpace
