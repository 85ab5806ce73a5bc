#include "helpers/document-reader/document/WordRows.h"

#include <algorithm>
#include <cmath>

namespace ovrin::documentreader {

namespace {

/// Indexes of words.
using Row = std::vector<qsizetype>;

bool areAlike(const QRectF& a, const QRectF& b)
{
    return std::abs(a.height() - b.height()) < 0.1 * a.height();
}

bool areOnOneRow(const QRectF& a, const QRectF& b)
{
    const double overlap = std::min(a.bottom(), b.bottom()) - std::max(a.top(), b.top());
    return areAlike(a, b) ? std::abs(a.top() - b.top()) < 0.2 * a.height()
                          : overlap > 0.5 * std::min(a.height(), b.height());
}

class Rows
{
public:
    explicit Rows(std::vector<Word>& words)
        : m_words(words)
    {
    }

    /// Parts the line that begins with word `first` where it is two.
    void part(qsizetype first)
    {
        constexpr std::size_t mostWords = 1000;
        Row line;
        for (qsizetype i = first; i >= 0 && line.size() < mostWords; i = m_words[i].next) {
            line.push_back(i);
        }
        if (line.size() < 2) {
            return;
        }
        // In type of its own the first word may stand beside both rows.
        const bool isApart = !areAlike(box(line[0]), box(line[1]));
        std::vector<Row> rows = rowsOf(line, isApart ? 1 : 0);
        if (rows.size() != 2) {
            return;
        }
        if (box(rows[1].front()).top() < box(rows[0].front()).top()) {
            std::swap(rows[0], rows[1]);
        }
        const bool areOfOneType = std::all_of(line.begin() + 1, line.end(),
                                              [&](qsizetype i) { return areAlike(box(line[1]), box(i)); });
        if (areOfOneType || areBeside(rows[0], rows[1])) {
            if (isApart) {
                m_words[first].hasSpaceAfter = true;
                m_words[first].next = rows[0].front();
            }
            chain(rows[0]);
            chain(rows[1]);
        }
    }

private:
    const QRectF& box(qsizetype i) const { return m_words[i].box; }

    /// The rows of a line's words from the one at `begin` on.
    std::vector<Row> rowsOf(const Row& line, std::size_t begin) const
    {
        std::vector<Row> rows;
        for (std::size_t k = begin; k < line.size(); ++k) {
            const qsizetype i = line[k];
            const auto own = std::find_if(rows.begin(), rows.end(), [&](const Row& row) {
                return areOnOneRow(box(row.back()), box(i));
            });
            if (own == rows.end()) {
                rows.push_back({i});
            } else {
                own->push_back(i);
            }
        }
        return rows;
    }

    /// Whether two rows stand one below the other rather than one behind the other.
    bool areBeside(const Row& upper, const Row& lower) const
    {
        constexpr std::size_t leastWords = 2;
        return upper.size() >= leastWords && lower.size() >= leastWords &&
               box(lower.front()).left() < box(upper.back()).right() &&
               box(upper.front()).left() < box(lower.back()).right();
    }

    void chain(const Row& row)
    {
        for (std::size_t k = 0; k < row.size(); ++k) {
            Word& word = m_words[row[k]];
            const bool isLast = k + 1 == row.size();
            // The word that came next may have been one of the other row.
            word.hasSpaceAfter = !isLast;
            word.next = isLast ? -1 : row[k + 1];
        }
    }

    std::vector<Word>& m_words;
};

} // namespace

std::vector<Word> withRowsApart(std::vector<Word> words)
{
    std::vector<bool> follows(words.size(), false);
    for (const Word& word : words) {
        if (word.next >= 0) {
            follows[word.next] = true;
        }
    }
    Rows rows(words);
    for (std::size_t first = 0; first < words.size(); ++first) {
        if (!follows[first]) {
            rows.part(static_cast<qsizetype>(first));
        }
    }
    return words;
}

} // namespace ovrin::documentreader
