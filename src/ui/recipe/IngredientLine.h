#pragma once

#include <QtCore/QLocale>
#include <QtCore/QStringList>

namespace ovrin {

/// An ingredient line as it is shown: the amount in a heavier weight than the rest.
struct IngredientLine
{
    /// The scaled line, what is copied and read aloud.
    QString text;
    /// How much of `text` is the amount.
    qsizetype amountLength = 0;
    /// Heads the lines below it and is never scaled.
    bool isHeading = false;

    /// The line as rich text, everything in it escaped.
    QString richText() const;

    bool operator==(const IngredientLine&) const = default;
};

/// The lines at `factor`.
QList<IngredientLine> ingredientLines(const QStringList& lines, double factor, const QLocale& locale);

} // namespace ovrin
