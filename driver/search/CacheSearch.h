#pragma once

#include <set>
#include <string>
#include <utility>

#include "automation/Object.h"

namespace zelbar {

/// What a search looks for.
inline constexpr long kSearchByNumber = 0;
inline constexpr long kSearchByName = 1;

/// One search on the cache: what was asked for, and the rows that answer it. While Outlook is asked for a
/// row's contact the client may start another search on the same cursor; each finishes on its own. The rows
/// are closed when the last one lets go of them.
struct CacheSearch {
    CacheSearch(long searchKind, std::wstring searchText, bool isUnified)
        : kind(searchKind), text(std::move(searchText)), unified(isUnified) {}
    CacheSearch(const CacheSearch&) = delete;
    CacheSearch& operator=(const CacheSearch&) = delete;
    ~CacheSearch();

    /// The query: the cache's rows whose name or number is like the text, by name. Empty for a kind of search
    /// that there is not.
    std::wstring query() const;
    /// How many rows there are, in the 16 bits that clients get. Throws the overflow fault when it does not
    /// fit.
    short count() const;

    const long kind;
    const std::wstring text;
    const bool unified;  ///< The client's unified search: business numbers only.
    Object rows;         ///< None until the query has been opened, or when it could not be.
    short matchCount = 0;
    /// The contacts that a walk has met since the query or since it turned: a contact's rows need not be
    /// neighbours, as those of a number's other forms have no name.
    std::set<std::wstring> met;
    const void* direction = nullptr;  ///< The one of that walk; null for none.
};

}  // namespace zelbar
