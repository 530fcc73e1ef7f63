#include "app/search/BestMatches.h"

#include "platform/text/Text.h"

#include <algorithm>

namespace zv {

namespace {

struct Ranked {
    std::size_t age; ///< of its choice
    MatchQuality quality;
    std::string_view title;
    SearchPlaces const* places;
    SearchPlace const* place;
    std::size_t index;
};

bool isBetter(Ranked const& a, Ranked const& b)
{
    if (a.age != b.age)
        return a.age < b.age;
    if (a.quality != b.quality)
        return a.quality < b.quality;
    if (a.place->way.size() != b.place->way.size())
        return a.place->way.size() < b.place->way.size();
    return a.title != b.title ? a.title < b.title : a.place->way < b.place->way;
}

std::size_t ageOf(SearchPlace const& place, std::size_t index, ChosenAges const& ages)
{
    if (!place.folder)
        return ages.ageOf(place.identities[index]);
    return ages.ageOf(place.folder->url.appending(place.folder->contents[index].name).toString());
}

/// Whether something in the place may have been chosen; few folders have such, and telling is quicker than naming files.
bool mayHaveChosen(SearchPlace const& place, ChosenAges const& ages) { return place.folder ? ages.hasSomethingIn(place.folder->url) : true; }

void rank(SearchPlaces const& places, SearchPlace const& place, SearchQuery const& query, ChosenAges const& ages, std::vector<Ranked>& ranked)
{
    bool const hasChosen = mayHaveChosen(place, ages);
    for (std::size_t i = 0; i < place.titles.size(); ++i) {
        if (auto const quality = query.match(place.titles[i]))
            ranked.push_back({ hasChosen ? ageOf(place, i, ages) : ChosenAges::never, *quality, place.titles[i], &places, &place, i });
    }
}

} // namespace

void FoldedTitles::add(std::string_view title)
{
    m_text += foldedForSearch(title);
    m_ends.push_back(m_text.size());
}

std::vector<SearchMatch> bestMatches(std::vector<SearchPlaces> const& all, SearchQuery const& query, ChosenAges const& ages, std::size_t count)
{
    std::vector<Ranked> ranked;
    for (auto const& places : all) {
        for (auto const& place : *places)
            rank(places, place, query, ages, ranked);
    }
    auto const end = ranked.begin() + static_cast<std::ptrdiff_t>(std::min(count, ranked.size()));
    std::partial_sort(ranked.begin(), end, ranked.end(), isBetter);
    std::vector<SearchMatch> best;
    std::transform(ranked.begin(), end, std::back_inserter(best), [](Ranked const& each) { return SearchMatch { *each.places, each.place, each.index }; });
    return best;
}

} // namespace zv
