#pragma once

#include "model/Instant.h"

#include <QtCore/QString>

#include <array>
#include <optional>

namespace ovrin {

class Recipe;

/// The sidebar's rows, in its order.
enum class LibraryFilter { All, Saved, Cooked, Recent };

inline constexpr std::array libraryFilters{LibraryFilter::All, LibraryFilter::Saved, LibraryFilter::Cooked,
                                           LibraryFilter::Recent};

/// "All Recipes", "Saved", ...: the filter's name and its label.
QString rawValue(LibraryFilter filter);
std::optional<LibraryFilter> libraryFilterFrom(const QString& rawValue);
/// Name of the filter's symbol.
QString symbolName(LibraryFilter filter);

/// Recent means created less than 14 days before `now`.
bool letsThrough(LibraryFilter filter, const Recipe& recipe, Instant now);

} // namespace ovrin
