#include "model/RecipeTint.h"

#include "model/Recipe.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ovrin {

namespace {

constexpr std::array<TintColor, 6> palette{{{0.8, 0.45, 0.25},
                                            {0.45, 0.55, 0.3},
                                            {0.7, 0.3, 0.35},
                                            {0.3, 0.45, 0.6},
                                            {0.75, 0.6, 0.25},
                                            {0.5, 0.35, 0.55}}};

double toLinear(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double fromLinear(double light)
{
    const double component = light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
    return std::clamp(component, 0.0, 1.0);
}

} // namespace

std::optional<TintColor> colorFromHex(const std::optional<QString>& hex)
{
    if (!hex || hex->size() != 6)
        return std::nullopt;
    const bool isSigned = hex->startsWith(u'+');
    const QStringView digits = QStringView(*hex).sliced(isSigned ? 1 : 0);
    quint32 value = 0;
    for (const QChar c : digits) {
        const char16_t lower = c.unicode() | 0x20;
        if (c >= u'0' && c <= u'9')
            value = value * 16 + (c.unicode() - u'0');
        else if (lower >= u'a' && lower <= u'f')
            value = value * 16 + (lower - u'a' + 10U);
        else
            return std::nullopt;
    }
    return TintColor{((value >> 16) & 0xff) / 255.0, ((value >> 8) & 0xff) / 255.0, (value & 0xff) / 255.0};
}

TintColor mixedWithBlack(const TintColor& color, double part)
{
    // Black is the origin of OKLab, so that mixing scales L, a and b alike; its cube roots turn that into the
    // cube of the scale on linear light, and the matrices cancel out.
    const double light = std::pow(1 - part, 3);
    return {fromLinear(toLinear(color.red) * light), fromLinear(toLinear(color.green) * light),
            fromLinear(toLinear(color.blue) * light)};
}

TintColor tint(const std::optional<QString>& tintHex, const QString& title)
{
    if (const auto color = colorFromHex(tintHex))
        return *color;
    quint32 hash = 0;
    for (const char32_t scalar : title.toUcs4())
        hash = (hash * 31 + scalar) % 65536;
    return palette[hash % palette.size()];
}

TintColor tint(const Recipe& recipe)
{
    return tint(recipe.tintHex(), recipe.title());
}

HeaderGradient headerGradient(const Recipe& recipe)
{
    const TintColor base = tint(recipe);
    return {mixedWithBlack(base, 0.55), mixedWithBlack(base, 0.3)};
}

} // namespace ovrin
