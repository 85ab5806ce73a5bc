#pragma once

#include <QtCore/QString>

#include <optional>

namespace ovrin {

class Recipe;

/// An opaque sRGB colour, each component from 0 to 1.
struct TintColor
{
    double red = 0;
    double green = 0;
    double blue = 0;

    bool operator==(const TintColor&) const = default;
};

/// Exactly six characters that are a number in base 16 ("+" may lead); nothing else gives a colour.
std::optional<TintColor> colorFromHex(const std::optional<QString>& hex);

/// `color` with a part of it (0 to 1) replaced by black, mixed in OKLab (Ottosson 2020), where equal steps
/// look equal.
TintColor mixedWithBlack(const TintColor& color, double part);

/// The colour of the photo, or else one of six that depends on the title alone.
TintColor tint(const Recipe& recipe);
TintColor tint(const std::optional<QString>& tintHex, const QString& title);

struct HeaderGradient
{
    TintColor first;
    TintColor second;
};
HeaderGradient headerGradient(const Recipe& recipe);

} // namespace ovrin
