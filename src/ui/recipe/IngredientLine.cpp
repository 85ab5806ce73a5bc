#include "ui/recipe/IngredientLine.h"

#include "text/IngredientScaler.h"

namespace ovrin {

QString IngredientLine::richText() const
{
    if (amountLength == 0)
        return text.toHtmlEscaped();
    return QStringLiteral("<b>%1</b>%2")
        .arg(text.first(amountLength).toHtmlEscaped(), text.sliced(amountLength).toHtmlEscaped());
}

QList<IngredientLine> ingredientLines(const QStringList& lines, double factor, const QLocale& locale)
{
    QList<IngredientLine> result;
    result.reserve(lines.size());
    for (const QString& line : lines) {
        if (IngredientScaler::isSectionHeading(line)) {
            result.append({line, 0, true});
            continue;
        }
        const QString scaled = IngredientScaler::scale(line, factor, locale);
        result.append({scaled, IngredientScaler::leadingAmountLength(scaled), false});
    }
    return result;
}

} // namespace ovrin
