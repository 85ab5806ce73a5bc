#include "fuzz/text/TextTargets.h"

#include "fuzz/Require.h"
#include "text/DirectionTokenizer.h"
#include "text/Duration.h"
#include "text/HTMLText.h"
#include "text/IngredientScaler.h"
#include "text/PatternReference.h"

#include <utility>

namespace ovrin::fuzz {

void markup(QByteArrayView bytes)
{
    const QString text = QString::fromUtf8(bytes);
    const QString cleaned = HTMLText::clean(text);
    require(cleaned == PatternReference::clean(text), "markup is cleaned as by the patterns");
    require(HTMLText::decodeEntities(text) == PatternReference::decodeEntities(text),
            "entities are decoded as by the pattern");
    require(cleaned.size() <= text.size(), "clean text is no longer than its markup");
    require(!cleaned.startsWith(u'\n') && !cleaned.endsWith(u'\n') &&
                !cleaned.contains(QStringLiteral("\n\n")),
            "clean text has no empty lines");
}

void durations(QByteArrayView bytes)
{
    const QString text = QString::fromUtf8(bytes);
    require(Duration::minutes(text) == PatternReference::minutes(text),
            "durations are read as by the pattern");
}

void ingredientLines(QByteArrayView bytes)
{
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    for (const QString& line : QString::fromUtf8(bytes).split(u'\n')) {
        for (const double factor : {0.5, 1.0, 3.0}) {
            require(IngredientScaler::scale(line, factor, locale) ==
                        PatternReference::scale(line, factor, locale),
                    "lines are scaled as by the pattern");
        }
        const qsizetype length = IngredientScaler::leadingAmountLength(line);
        require(length == PatternReference::leadingAmountLength(line), "amounts end where the pattern ends");
        require(!IngredientScaler::isSectionHeading(line) || length == 0, "headings have no amount");
    }
}

void directions(QByteArrayView bytes)
{
    // Patterns of many phrases take long to compile, or do not.
    constexpr qsizetype longestCompared = 400;
    const QString text = QString::fromUtf8(bytes);
    const QString lines = text.section(QStringLiteral("\n\n"), 0, 0);
    const QStringList ingredients = lines.split(u'\n');
    const QStringList paragraphs = text.mid(lines.size() + 2).split(u'\n');

    const QList<QList<DirectionSegment>> segments = DirectionTokenizer(ingredients).segments(paragraphs);
    for (qsizetype i = 0; i < paragraphs.size(); ++i) {
        QString whole;
        for (const DirectionSegment& segment : segments.at(i)) {
            require(!segment.text.isEmpty(), "no segment is empty");
            whole += segment.text;
        }
        require(whole == paragraphs.at(i), "the segments are the paragraph");
    }
    if (lines.size() > longestCompared)
        return;
    if (const auto expected = PatternReference::segments(ingredients, paragraphs))
        require(segments == *expected, "directions are cut as by the patterns");
}

} // namespace ovrin::fuzz
