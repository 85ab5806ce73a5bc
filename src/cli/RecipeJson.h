#pragma once

#include "model/Recipe.h"

namespace ovrin::cli {

/// All attributes under their names but the photo's bytes, as one JSON object: `stepsData` as the array that
/// it encodes, moments in ISO 8601 (UTC, milliseconds), absent values left out.
QByteArray toJson(const Recipe& recipe);

} // namespace ovrin::cli
