#include "model/LibraryFilter.h"

#include "model/Recipe.h"

#include <algorithm>

namespace ovrin {

QString rawValue(LibraryFilter filter)
{
    switch (filter) {
    case LibraryFilter::All:
        return QStringLiteral("All Recipes");
    case LibraryFilter::Saved:
        return QStringLiteral("Saved");
    case LibraryFilter::Cooked:
        return QStringLiteral("Cooked");
    case LibraryFilter::Recent:
        return QStringLiteral("Recently Added");
    }
    Q_UNREACHABLE();
}

std::optional<LibraryFilter> libraryFilterFrom(const QString& value)
{
    const auto found = std::ranges::find(libraryFilters, value, rawValue);
    return found != libraryFilters.end() ? std::optional(*found) : std::nullopt;
}

QString symbolName(LibraryFilter filter)
{
    switch (filter) {
    case LibraryFilter::All:
        return QStringLiteral("book.pages");
    case LibraryFilter::Saved:
        return QStringLiteral("bookmark");
    case LibraryFilter::Cooked:
        return QStringLiteral("checkmark.seal");
    case LibraryFilter::Recent:
        return QStringLiteral("clock");
    }
    Q_UNREACHABLE();
}

bool letsThrough(LibraryFilter filter, const Recipe& recipe, Instant now)
{
    switch (filter) {
    case LibraryFilter::All:
        return true;
    case LibraryFilter::Saved:
        return recipe.isSaved();
    case LibraryFilter::Cooked:
        return recipe.timesCooked() > 0;
    case LibraryFilter::Recent:
        return recipe.createdAt() > now - std::chrono::days(14);
    }
    Q_UNREACHABLE();
}

} // namespace ovrin
