#include "model/LibraryQuery.h"

#include "model/Recipe.h"

#include <cstring>

namespace ovrin {

LibraryQuery::LibraryQuery(LibraryFilter filter, const QString& search, Instant now,
                           const SearchFolding& folding)
    : m_filter(filter)
    , m_searches(!search.isEmpty())
    , m_needle(folding.folded(search))
    , m_now(now)
    , m_folding(&folding)
{
}

bool LibraryQuery::letsThrough(const Recipe& recipe) const
{
    if (!ovrin::letsThrough(m_filter, recipe, m_now))
        return false;
    if (!m_searches)
        return true;
    const std::string& key = recipe.searchKey(*m_folding);
    // A text of marks alone folds to nothing and is found nowhere.
    return !m_needle.empty() && memmem(key.data(), key.size(), m_needle.data(), m_needle.size()) != nullptr;
}

} // namespace ovrin
