#pragma once

#include "app/model/ChosenEntries.h"
#include "app/search/SearchPlace.h"
#include "app/search/SearchQuery.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace zv {

/// An entry that matches.
struct SearchMatch {
    SearchPlaces places; ///< keeps the place
    SearchPlace const* place;
    std::size_t index; ///< among the place's entries
};

/// The best matches, at most `count`: those chosen last, then by quality; the nearer ones before those deeper down, then
/// by title. Any thread.
[[nodiscard]] std::vector<SearchMatch> bestMatches(std::vector<SearchPlaces> const& all, SearchQuery const& query, ChosenAges const& ages, std::size_t count);

} // namespace zv
