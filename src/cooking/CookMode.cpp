#include "cooking/CookMode.h"

#include "text/DirectionTokenizer.h"

#include <algorithm>

namespace ovrin::CookMode {

QString Item::text() const
{
    QString whole;
    for (const DirectionSegment& segment : segments)
        whole += segment.text;
    return whole;
}

QList<Item> items(const QStringList& ingredients, const QList<RecipeStep>& steps)
{
    QStringList paragraphs;
    for (const RecipeStep& step : steps)
        paragraphs += step.paragraphs;
    // In one call, so that mentions are counted over the whole recipe.
    const auto segments = DirectionTokenizer(ingredients).segments(paragraphs);

    QList<Item> items;
    items.reserve(paragraphs.size());
    for (qsizetype i = 0; i < steps.size(); ++i) {
        for (qsizetype j = 0; j < steps.at(i).paragraphs.size(); ++j)
            items.append({.id = QStringLiteral("%1-%2").arg(i).arg(j),
                          .stepNumber = static_cast<int>(i) + 1,
                          .stepTitle = steps.at(i).title,
                          .isFirstInStep = j == 0,
                          .segments = segments.at(items.size())});
    }
    return items;
}

qsizetype position(const QList<Item>& items, const QString& id)
{
    const auto found =
        std::find_if(items.cbegin(), items.cend(), [&](const Item& item) { return item.id == id; });
    return found == items.cend() ? 0 : std::distance(items.cbegin(), found);
}

QString moved(const QList<Item>& items, const QString& id, qsizetype count)
{
    if (items.isEmpty())
        return id;
    const qsizetype last = items.size() - 1;
    // Limited first, so that no count can overflow the sum.
    const qsizetype step = std::clamp(count, -last, last);
    return items.at(std::clamp<qsizetype>(position(items, id) + step, 0, last)).id;
}

double panelWidth(double windowWidth)
{
    constexpr double widestWithout = 700;
    constexpr double share = 0.3;
    constexpr double widestPanel = 400;
    return windowWidth > widestWithout ? std::min(share * windowWidth, widestPanel) : 0;
}

} // namespace ovrin::CookMode
