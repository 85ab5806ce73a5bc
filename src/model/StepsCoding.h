#pragma once

#include "model/RecipeStep.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <optional>

namespace ovrin {

class JsonValue;
class JsonWriter;

/// The JSON array that a recipe keeps its steps in: objects with "id" (upper-case UUID), "title" (left out
/// when absent) and "paragraphs".
QByteArray encodeSteps(const QList<RecipeStep>& steps);
void writeSteps(JsonWriter& writer, const QList<RecipeStep>& steps);

/// Nothing when `json` is not such an array, empty bytes included; "id" is read in either case.
std::optional<QList<RecipeStep>> decodeSteps(const QByteArray& json);
std::optional<QList<RecipeStep>> readSteps(JsonValue value);

void writeStrings(JsonWriter& writer, const QStringList& strings);
/// Nothing unless `value` is an array of strings.
std::optional<QStringList> readStrings(JsonValue value);

/// A UUID as it is written everywhere: upper case, no braces.
QString uuidText(const QUuid& id);
/// Nothing unless `text` is a UUID in its canonical form of 36 characters, in either case.
std::optional<QUuid> uuidFromText(const QString& text);

} // namespace ovrin
