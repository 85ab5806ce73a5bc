#pragma once

#include "model/RecipeStep.h"
#include "json/JsonDocument.h"

#include <QtCore/QStringList>
#include <QtCore/QUrl>

#include <optional>
#include <string_view>

namespace ovrin {

/// Reading a recipe of the common structured-data vocabulary out of JSON-LD as sites really write it: any
/// field may be a string, a number, an object, or a list of these.
namespace JsonLD {

/// The value of one script's body: strictly, else with its line breaks as spaces, else mended where that
/// takes no guessing. Nothing when it is no JSON even then.
std::optional<JsonDocument> json(std::string_view body);

/// The first recipe object in `value`, depth first; missing when there is none.
JsonValue findRecipe(JsonValue value);

/// A string cleaned of markup, a number in decimal, an object's name, text or value, an array's first of
/// these. Nothing instead of an empty text.
std::optional<QString> text(JsonValue value);

/// The texts of an array's elements, or of the one value.
QStringList list(JsonValue value);

/// The texts of one or more people or organisations, joined by ", ".
QString people(JsonValue value);

/// The lines of every element of `list`, without empty ones.
QStringList lines(JsonValue value);

/// A method's steps from one text, a list of texts or step objects, or sections of these. A section's name
/// becomes the title of its first step.
QList<RecipeStep> steps(JsonValue value);

/// The first address of a picture, absolute.
std::optional<QUrl> imageURL(JsonValue value, const QUrl& page);

/// An ISO-8601 duration in whole minutes; nothing for what is no string or less than a minute.
std::optional<qint64> minutes(JsonValue value);

} // namespace JsonLD

/// `address` as an absolute address, seen from `page`. White space around it is left out, as are line breaks
/// and tabs inside; other characters that may not stand in an address are percent-encoded, as browsers do.
/// Nothing when it is empty or still no valid address.
std::optional<QUrl> resolvedAddress(const QString& address, const QUrl& page);

} // namespace ovrin
