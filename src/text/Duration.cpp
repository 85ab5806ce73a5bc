#include "text/Duration.h"

#include "text/Characters.h"

#include <limits>

namespace ovrin::Duration {

namespace {

constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr qint64 minutesOfADay = 1440;

/// An integer in ASCII digits; nothing for other digits and for what a qint64 cannot hold.
std::optional<qint64> integer(QStringView digits)
{
    qint64 result = 0;
    for (const QChar c : digits) {
        if (c < u'0' || c > u'9')
            return std::nullopt;
        const qint64 digit = c.unicode() - u'0';
        if (result > (largest - digit) / 10)
            return std::nullopt;
        result = result * 10 + digit;
    }
    return result;
}

class Reader
{
public:
    explicit Reader(QStringView text)
        : m_text(text)
    {
    }

    /// Steps over `letter`, given in lower case, whatever its case; "ſ" is an s.
    bool skip(char32_t letter)
    {
        if (isAtEnd() || Characters::folded(m_text[m_position].unicode()) != letter)
            return false;
        ++m_position;
        return true;
    }

    /// Adds an amount in front of `unit` to the sum; stays where it is when the amount has another unit.
    void add(char32_t unit, qint64 minutes)
    {
        const qsizetype start = m_position;
        const qsizetype end = Characters::skipDigits(m_text, start);
        m_position = end;
        if (end == start || !skip(unit)) {
            m_position = start;
            return;
        }
        const std::optional<qint64> amount = integer(m_text.sliced(start, end - start));
        if (!amount || *amount > (largest - m_sum) / minutes)
            m_isReadable = false;
        else
            m_sum += *amount * minutes;
    }

    void skipSeconds()
    {
        const qsizetype start = m_position;
        m_position = Characters::skipDigits(m_text, start);
        if (m_position != start && !isAtEnd() && m_text[m_position] == u'.') {
            const qsizetype fraction = m_position + 1;
            m_position = Characters::skipDigits(m_text, fraction);
            if (m_position == fraction)
                m_position = start;
        }
        if (m_position == start || !skip(U's'))
            m_position = start;
    }

    bool isAtEnd() const { return m_position == m_text.size(); }
    std::optional<qint64> sum() const
    {
        return m_isReadable && m_sum >= 1 ? std::optional(m_sum) : std::nullopt;
    }

private:
    QStringView m_text;
    qsizetype m_position = 0;
    qint64 m_sum = 0;
    bool m_isReadable = true;
};

} // namespace

std::optional<qint64> minutes(QStringView text)
{
    Reader reader(text);
    if (!reader.skip(U'p'))
        return std::nullopt;
    reader.add(U'd', minutesOfADay);
    if (reader.skip(U't')) {
        reader.add(U'h', 60);
        reader.add(U'm', 1);
        reader.skipSeconds();
    }
    return reader.isAtEnd() ? reader.sum() : std::nullopt;
}

} // namespace ovrin::Duration
