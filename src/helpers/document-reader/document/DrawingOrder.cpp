#include "helpers/document-reader/document/DrawingOrder.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace ovrin::documentreader {

namespace {

QString withoutSpaces(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        if (!c.isSpace()) {
            result += c;
        }
    }
    return result;
}

/// Finds each line once: characters that one line has taken are no other's.
class DrawnText
{
public:
    explicit DrawnText(const QString& text)
        : m_text(withoutSpaces(withoutLigatures(text.left(longestText))))
        , m_isTaken(static_cast<std::size_t>(m_text.size()), false)
    {
    }

    /// Where `text`, or failing that the most of it, is drawn; -1 where it is not. A mark in front of it may
    /// be drawn by itself.
    qsizetype take(const QString& text)
    {
        constexpr qsizetype shortestPart = 8;
        const QString key = withoutSpaces(text);
        const qsizetype whole = takeExactly(key);
        if (whole >= 0) {
            return whole;
        }
        const QString behindMark = withoutSpaces(text.section(u' ', 1));
        for (const QString& part : {key, behindMark}) {
            for (qsizetype length = part.size(); length >= shortestPart; length -= length / 3) {
                const qsizetype found = takeExactly(part.first(length));
                if (found >= 0) {
                    return found;
                }
            }
        }
        return -1;
    }

private:
    qsizetype takeExactly(const QString& key)
    {
        constexpr int mostTries = 64;
        qsizetype at = -1;
        for (int tries = 0; tries < mostTries && m_searches > 0; ++tries) {
            --m_searches;
            at = m_text.indexOf(key, at + 1);
            if (at < 0) {
                break;
            }
            const auto begin = m_isTaken.begin() + at;
            const auto end = begin + key.size();
            if (std::find(begin, end, true) == end) {
                std::fill(begin, end, true);
                return at;
            }
        }
        return -1;
    }

    /// A page has no more, and a file that says so shall not cost more.
    static constexpr qsizetype longestText = 100'000;
    int m_searches = 4000;
    QString m_text;
    std::vector<bool> m_isTaken;
};

} // namespace

QList<Run> inDrawingOrder(const QList<Run>& lines, const QString& drawn)
{
    // Long texts first: a "1" may stand inside of any of them.
    std::vector<qsizetype> order(static_cast<std::size_t>(lines.size()));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](qsizetype a, qsizetype b) { return lines[a].text.size() > lines[b].text.size(); });
    DrawnText text(drawn);
    std::vector<qsizetype> places(order.size());
    for (const qsizetype line : order) {
        places[static_cast<std::size_t>(line)] = text.take(lines[line].text);
    }
    for (std::size_t i = 1; i < places.size(); ++i) {
        places[i] = places[i] < 0 ? places[i - 1] : places[i];
    }
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](qsizetype a, qsizetype b) {
        return places[static_cast<std::size_t>(a)] < places[static_cast<std::size_t>(b)];
    });
    QList<Run> result;
    for (const qsizetype line : order) {
        result.append(lines[line]);
    }
    return result;
}

} // namespace ovrin::documentreader
