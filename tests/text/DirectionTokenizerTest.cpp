#include "text/DirectionTokenizer.h"
#include "text/IngredientPhrases.h"

#include <gtest/gtest.h>

namespace ovrin {

namespace {

/// A short way to write segments: plain text as it is, "{mention|line}" and "<time|seconds>".
QString written(const QList<DirectionSegment>& segments)
{
    QString text;
    for (const DirectionSegment& segment : segments) {
        EXPECT_FALSE(segment.text.isEmpty());
        if (segment.kind == DirectionSegment::Kind::Plain)
            text += segment.text;
        else if (segment.kind == DirectionSegment::Kind::Ingredient)
            text += QStringLiteral("{%1|%2}").arg(segment.text).arg(segment.ingredientIndex);
        else
            text += QStringLiteral("<%1|%2>").arg(segment.text).arg(segment.seconds);
    }
    return text;
}

std::string tokenized(const QString& ingredients, const QString& directions)
{
    QStringList result;
    const DirectionTokenizer tokenizer(ingredients.split(u'|'));
    for (const auto& paragraph : tokenizer.segments(directions.split(u'|')))
        result << written(paragraph);
    return result.join(u'|').toStdString();
}

QString phrases(const QString& line)
{
    QStringList result;
    IngredientPhrases::visit(line, [&](const QString& phrase) {
        result << phrase;
        return true;
    });
    return result.join(u'|');
}

} // namespace

struct TokenizerCase
{
    /// Lines, paragraphs and the paragraphs' segments, each parted by "|" between lines and paragraphs.
    const char* ingredients;
    const char* directions;
    const char* segments;
};

class TokenizerTest : public testing::TestWithParam<TokenizerCase>
{
};

TEST_P(TokenizerTest, CutsParagraphs)
{
    EXPECT_EQ(tokenized(QString::fromUtf8(GetParam().ingredients), QString::fromUtf8(GetParam().directions)),
              QString::fromUtf8(GetParam().segments).toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Mentions, TokenizerTest,
    testing::Values(
        TokenizerCase{"2 cloves garlic, minced|1 red onion, diced", "Fry the onion and garlic for 5 minutes.",
                      "Fry the {onion|1} and {garlic|0} for <5 minutes|300>."},
        TokenizerCase{"1 red onion", "Chop the Red \n\u00A0Onion.|Add onion.",
                      "Chop the {Red \n\u00A0Onion|0}.|Add onion."},
        TokenizerCase{"onion|red onion", "red onions, onion", "{red onions|1}, {onion|0}"},
        TokenizerCase{"salt|salt", "Salt!", "{Salt|0}!"},
        TokenizerCase{"3 eggs", "Beat 1 egg.", "Beat 1 {egg|0}."},
        TokenizerCase{"berries", "berry", "{berry|0}"},
        TokenizerCase{"salt", "saltine salty", "saltine salty"},
        TokenizerCase{"salt", "salt-free rock-salt salt", "salt-free rock-salt {salt|0}"},
        TokenizerCase{"Water|ice water|oil", "water ice oil ice water", "water ice oil {ice water|1}"},
        TokenizerCase{"all-purpose flour|baker's yeast", "All-purpose flour, baker's yeast, purpose",
                      "{All-purpose flour|0}, {baker's yeast|1}, purpose"},
        TokenizerCase{"jalapen\u0303o|crème", "jalapen\u0303o jalapeño crème creme",
                      "{jalapen\u0303o|0} jalapeño {crème|1} creme"},
        TokenizerCase{"butter", "½butter 5butter _butter", "½{butter|0} 5butter _butter"},
        TokenizerCase{"butter", "butter\u0301 butter", "butter\u0301 {butter|0}"},
        TokenizerCase{"salt", "\u017Falt salt", "\u017Falt {salt|0}"},
        TokenizerCase{"𐐨𐐩𐐪", "🍕𐐀𐐁𐐂🍕", "🍕{𐐀𐐁𐐂|0}🍕"}, TokenizerCase{"", "a||b", "a||b"},
        // A dropped mention takes its text along, so that no shorter phrase is found in it.
        TokenizerCase{"red onion|onion", "red onion-free onion", "red onion-free {onion|0}"}));

INSTANTIATE_TEST_SUITE_P(
    Timers, TokenizerTest,
    testing::Values(
        TokenizerCase{"", "Simmer 1½ hours", "Simmer 1<½ hours|1800>"},
        TokenizerCase{"", "Bake 1.5 hrs, rest 30 secs", "Bake <1.5 hrs|5400>, rest <30 secs|30>"},
        TokenizerCase{"", "10 to 12 min 10—12MIN 10 - 12.5 Minutes",
                      "<10 to 12 min|600> <10—12MIN|600> <10 - 12.5 Minutes|600>"},
        TokenizerCase{"", "10-12-14 minutes", "10-<12-14 minutes|720>"},
        TokenizerCase{"", "1.5.3 min", "1.<5.3 min|318>"}, TokenizerCase{"", "½-1 hour", "<½-1 hour|1800>"},
        TokenizerCase{"", "1-½ hour", "1-<½ hour|1800>"},
        TokenizerCase{"", "5 minutess 5 min\u0301 5 minx 5 min_ 5min.",
                      "5 minutess 5 min\u0301 5 minx 5 min_ <5min|300>."},
        TokenizerCase{"", "0 minutes, 0.5 sec, ٥ minutes", "0 minutes, 0.5 sec, ٥ minutes"},
        TokenizerCase{"", "9223372036854775807 hours", "9223372036854775807 hours"},
        TokenizerCase{"", "9999999999999999999 secs", "9999999999999999999 secs"},
        TokenizerCase{"5 minute rice", "5 minute rice 10 minutes", "<5 minute|300> rice <10 minutes|600>"},
        TokenizerCase{"minute steak|steak", "5 minute steak; steak", "<5 minute|300> steak; {steak|0}"}));

TEST(IngredientPhrases, AreEverySequenceOfKeptWords)
{
    EXPECT_EQ(phrases(QStringLiteral("2 large cloves garlic, minced")), QStringLiteral("garlic|garlics"));
    EXPECT_EQ(phrases(QStringLiteral("1 cup extra virgin olive oil")),
              QStringLiteral("olive oil|olive oils|olive|olives"));
    EXPECT_EQ(phrases(QStringLiteral("1 (14 oz) can Diced-Tomatoes 'n' --basil's")),
              QStringLiteral("diced-tomatoes|diced-tomato|basil's|basil'"));
    EXPECT_EQ(phrases(QStringLiteral("a (b) c (d")), QString());
    EXPECT_EQ(phrases(QStringLiteral("bell pepper cup salt")),
              QStringLiteral("bell pepper|bell peppers|bell|bells|pepper|peppers|salt|salts"));
}

TEST(IngredientPhrases, ChangeTheNumberOfTheLastWord)
{
    for (const auto& [phrase, variant] :
         std::initializer_list<std::pair<const char*, const char*>>{{"berries", "berry"},
                                                                    {"tomatoes", "tomato"},
                                                                    {"peaches", "peach"},
                                                                    {"radishes", "radish"},
                                                                    {"red onions", "red onion"},
                                                                    {"cherry", "cherries"},
                                                                    {"carrot", "carrots"},
                                                                    {"swiss", "swisss"}})
        EXPECT_EQ(IngredientPhrases::numberVariant(QString::fromUtf8(phrase)), QString::fromUtf8(variant));
    EXPECT_EQ(IngredientPhrases::numberVariant(QStringLiteral("red gas")), std::nullopt);
}

TEST(DirectionTokenizer, AnswersAMegabyteOfAnything)
{
    for (const char* part :
         {"(", "1", "1.", "1-", "salt ", "a-", "aaa-", "aaa aaa ", " ", "to", "ice ", "½"}) {
        const QString text = QString::fromUtf8(part).repeated((1 << 20) / QString::fromUtf8(part).size());
        qsizetype length = 0;
        const DirectionTokenizer tokenizer({text, QStringLiteral("ice salt")});
        const QList<DirectionSegment> segments = tokenizer.segments({text}).first();
        for (const DirectionSegment& segment : segments)
            length += segment.text.size();
        EXPECT_EQ(length, text.size());
    }
    // A word whose beginning is found everywhere and whose end never.
    const QString word = QStringLiteral("a-").repeated(100) + QStringLiteral("bbb");
    DirectionTokenizer({word}).segments({QStringLiteral("a-").repeated(1 << 16)});
}

} // namespace ovrin
