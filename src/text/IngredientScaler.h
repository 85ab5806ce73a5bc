#pragma once

#include <QtCore/QLocale>
#include <QtCore/QString>

#include <array>
#include <optional>

namespace ovrin {

/// Amounts at the start of ingredient lines: "1 ½ cups flour", "2-3 cloves garlic". Lines are free text; what
/// cannot be read is left as it stands. An amount is a mixed number ("1 1/2", "1½"), a fraction ("3/4", "½"),
/// an integer or a decimal, and may be a range ("2 to 3", "1–2"). Digits of any script are seen, those of
/// ASCII are read.
namespace IngredientScaler {

/// The factors a cook can choose from, in the order in which they are offered.
inline constexpr std::array scaleChoices{0.5, 1.0, 1.5, 2.0, 3.0, 4.0};

/// What a choice is called: "Original" for 1, otherwise the factor and "×".
QString scaleLabel(double factor, const QLocale& locale);

/// The number that an amount's text stands for, or nothing. Pieces between spaces are added up, so "1 1/2"
/// is 1.5; an empty text is 0.
std::optional<double> value(QStringView amount);

/// The number as a cook writes it: whole numbers and vulgar fractions ("1½") where one lies within 0.03,
/// otherwise a decimal of at most two places in the manner of `locale`. Empty when the number is not finite
/// or its whole part does not fit into 64 bits.
QString format(double number, const QLocale& locale);

/// The line with its leading amount multiplied; unchanged when it has none, or one that cannot be read or
/// written. At factor 1 only an amount written with a decimal point is rewritten ("0.5 cup" as "½ cup").
QString scale(const QString& line, double factor, const QLocale& locale);

/// How many UTF-16 units at the start of the line its leading amount takes, white space before it included, a
/// range whole; 0 when there is none. For setting amounts in a heavier weight.
qsizetype leadingAmountLength(QStringView line);

/// A line that ends in a colon and starts with no amount ("For the sauce:") heads the lines below it and is
/// no ingredient.
bool isSectionHeading(QStringView line);

} // namespace IngredientScaler

} // namespace ovrin
