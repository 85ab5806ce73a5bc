#include "text/Characters.h"
#include "text/DirectionTokenizer.h"
#include "text/Duration.h"
#include "text/HTMLText.h"
#include "text/IngredientScaler.h"
#include "text/PatternReference.h"

#include <gtest/gtest.h>

#include <random>

namespace ovrin {

namespace {

/// Random texts of a vocabulary: mostly near misses of what a pattern looks for. The same every time.
class Texts
{
public:
    explicit Texts(const char* vocabulary)
        : m_parts(QString::fromUtf8(vocabulary).split(u'|'))
    {
    }

    QString next(int maximumParts)
    {
        QString text;
        for (auto count = m_random() % static_cast<unsigned>(maximumParts + 1); count > 0; --count)
            text += m_parts.at(static_cast<qsizetype>(m_random() % static_cast<std::size_t>(m_parts.size())));
        return text;
    }

private:
    QStringList m_parts;
    std::mt19937 m_random{20}; // NOLINT(bugprone-random-generator-seed,cert-msc51-cpp)
};

constexpr int rounds = 20000;

} // namespace

TEST(Differential, CharacterClassesAgreeWithThePatterns)
{
    const QRegularExpression word(QStringLiteral("\\A[\\p{Alphabetic}\\p{M}\\p{Nd}\\p{Pc}]\\z"));
    const QRegularExpression digit(QStringLiteral("\\A\\p{Nd}\\z"));
    for (char32_t c = 0; c <= QChar::LastValidCodePoint; ++c) {
        if (QChar::isSurrogate(c) || QChar::category(c) == QChar::Other_NotAssigned)
            continue;
        const QString text = QString::fromUcs4(&c, 1);
        EXPECT_EQ(Characters::isWordCharacter(c), word.match(text).hasMatch())
            << std::hex << static_cast<unsigned>(c);
        EXPECT_EQ(Characters::isDigit(c), digit.match(text).hasMatch())
            << std::hex << static_cast<unsigned>(c);
    }
}

TEST(Differential, FoldingAgreesWithThePatterns)
{
    for (char32_t c = 0; c <= QChar::LastValidCodePoint; ++c) {
        if (QChar::isSurrogate(c))
            continue;
        for (const char32_t other : {QChar::toLower(c), QChar::toUpper(c), QChar::toTitleCase(c),
                                     QChar::toCaseFolded(c), Characters::folded(c)}) {
            if (other == c)
                continue;
            const QRegularExpression pattern(
                QStringLiteral("\\A\\x{%1}\\z").arg(static_cast<uint>(other), 0, 16),
                QRegularExpression::CaseInsensitiveOption);
            EXPECT_EQ(Characters::folded(c) == Characters::folded(other),
                      pattern.match(QString::fromUcs4(&c, 1)).hasMatch())
                << std::hex << static_cast<unsigned>(c) << ' ' << static_cast<unsigned>(other);
            EXPECT_EQ(QString::fromUcs4(&c, 1).size(), QString::fromUcs4(&other, 1).size());
        }
    }
}

TEST(Differential, AmountsAgreeWithThePattern)
{
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    Texts texts("1|2|0|12|3|٣|𝟏|½|⅓|⅚|/|.|,| | "
                "|\u00A0|\t|\n|\u0085|\u180E|-|–|—|to|TO|t|o|cup|(|K|🍕|\u0301|99999999999999999999");
    for (int i = 0; i < rounds; ++i) {
        const QString line = texts.next(9);
        for (const double factor : {1.0, 2.0, 0.5})
            ASSERT_EQ(IngredientScaler::scale(line, factor, locale),
                      PatternReference::scale(line, factor, locale))
                << line.toStdString();
        ASSERT_EQ(IngredientScaler::leadingAmountLength(line), PatternReference::leadingAmountLength(line))
            << line.toStdString();
    }
}

TEST(Differential, DurationsAgreeWithThePattern)
{
    Texts texts("1|0|25|٣|𝟏|P|PT|p|T|t|D|d|H|h|M|m|S|s|ſ|.|.5S|1H|30M|2D| "
                "|\n|9223372036854775807|99999999999999999999");
    for (int i = 0; i < rounds; ++i) {
        for (const QString& text :
             {texts.next(6), QStringLiteral("P") + texts.next(6), QStringLiteral("PT") + texts.next(6)})
            ASSERT_EQ(Duration::minutes(text), PatternReference::minutes(text)) << text.toStdString();
    }
}

TEST(Differential, MarkupAgreesWithThePatterns)
{
    Texts texts("<|>|/|<br|<BR|br|/>|</p>|</li>|</LI>|<p>|<b class='a>b'>|a|é|🍕| "
                "|\u00A0|\t|\n|\r|\u2028|\u2003|&|;|#|&#|&#x|x|X|"
                "65|D800|1F355|110000|4294967361|amp;|&amp;|&nbsp;|&lt;|&gt;|&frac12;|&Eacute;|&szlig;|K");
    for (int i = 0; i < rounds; ++i) {
        const QString text = texts.next(14);
        ASSERT_EQ(HTMLText::clean(text), PatternReference::clean(text)) << text.toStdString();
        ASSERT_EQ(HTMLText::decodeEntities(text), PatternReference::decodeEntities(text))
            << text.toStdString();
    }
}

TEST(Differential, DirectionsAgreeWithThePatterns)
{
    Texts ingredients("red|onion|onions|Salt|salt|ſalt|σας|ΣΑΣ|İce|all-purpose|flour|baker's|ice|water|"
                      "minute|cup|, |(|)| | | |-|'|"
                      "jalapen\u0303o|crème|2|½|𐐨𐐨𐐨|to|steak");
    Texts paragraphs("red|onion|ONIONS|Salt|ſalt|ΣΑΣ|σασ|i\u0307ce|all-purpose|flour|baker's|ice|water|"
                     "jalapen\u0303o|CRÈME|steak|"
                     "𐐀𐐨𐐀|1|2|1.5|.|٣|½|-|–|—|to|TO| | | "
                     "|\u00A0|\n|\u180E|minute|Minutes|ſecs|secs|hr|hours|s|_|\u0301|'|,|🍕|Ⓐ|K|"
                     "99999999999999999999");
    for (int i = 0; i < rounds / 20; ++i) {
        const QStringList lines{ingredients.next(8), ingredients.next(8), ingredients.next(4)};
        const DirectionTokenizer tokenizer(lines);
        for (int j = 0; j < 3; ++j) {
            const QStringList directions{paragraphs.next(16), paragraphs.next(8)};
            ASSERT_EQ(tokenizer.segments(directions), PatternReference::segments(lines, directions))
                << lines.join(u'|').toStdString() << '\n'
                << directions.join(u'|').toStdString();
        }
    }
}

} // namespace ovrin
