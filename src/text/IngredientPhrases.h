#pragma once

#include <QtCore/QString>

#include <functional>
#include <optional>

namespace ovrin {

/// The words by which directions may mention an ingredient line.
namespace IngredientPhrases {

/// Calls `visitor` with each phrase of the line until it returns false. A phrase is a sequence of words, in
/// lower case and with single spaces, of the part before the first comma: amounts, parentheses, units and
/// descriptions such as "chopped" fall away, and every sequence of neighbouring words that stays is a phrase,
/// longest first, each followed by its singular or plural. A phrase may come more than once.
void visit(const QString& line, const std::function<bool(const QString&)>& visitor);

/// The phrase with its last word in the other number: "berries" for "berry" and the other way round. Nothing
/// when the changed word has two units or less.
std::optional<QString> numberVariant(const QString& phrase);

} // namespace IngredientPhrases

} // namespace ovrin
