#pragma once

#include "model/LibraryFilter.h"
#include "model/SearchFolding.h"

#include <QtCore/QString>

#include <string>

namespace ovrin {

/// What the grid shows: a filter and a search text, at one moment. Valid as long as the store that gave it.
class LibraryQuery
{
public:
    /// An empty `search` lets everything through; it is not trimmed.
    LibraryQuery(LibraryFilter filter, const QString& search, Instant now, const SearchFolding& folding);

    /// Whether the filter lets the recipe through and the search text stands in its title, its publisher or
    /// one of its ingredient lines.
    bool letsThrough(const Recipe& recipe) const;

private:
    LibraryFilter m_filter;
    bool m_searches;
    std::string m_needle;
    Instant m_now;
    const SearchFolding* m_folding;
};

} // namespace ovrin
