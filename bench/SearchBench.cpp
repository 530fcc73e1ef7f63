// The search below the menu: a query over so many titles against finding its text in each.

#include "app/search/BestMatches.h"
#include "bench/Ratio.h"

#include <benchmark/benchmark.h>

#include <array>

using namespace zv;

namespace {

constexpr std::size_t sizes[] = { 10, 100, 1'000, 10'000, 100'000 };
constexpr std::size_t mostMatches = 100;

/// Folders of up to a thousand titles; one title in eight has the text that is looked for.
SearchPlaces placesOf(std::size_t count)
{
    static constexpr std::array words { "Report", "Invoice", "IMG", "Grüße", "Holiday photo", "Syntax", "Résumé", "Backup" };
    auto places = std::make_shared<std::vector<SearchPlace>>();
    for (std::size_t i = 0; i < count; ++i) {
        if (i % 1'000 == 0)
            places->push_back({ .way = { "Documents", std::to_string(i) }, .titles = {}, .folder = std::nullopt });
        auto const title = words[i % words.size()] + std::string(" ") + std::to_string((i * 7919) % 1'000'003) + ".pdf";
        places->back().titles.add(title);
        places->back().identities.push_back(title);
    }
    return places;
}

} // namespace

int main()
{
    ChosenAges const ages({ "Syntax 7919.pdf" });
    for (auto const count : sizes) {
        auto const places = placesOf(count);
        auto const rank = [&] { benchmark::DoNotOptimize(bestMatches({ places }, SearchQuery("tax"), ages, mostMatches).size()); };
        auto const find = [&] {
            std::size_t found = 0;
            for (auto const& place : *places) {
                for (std::size_t i = 0; i < place.titles.size(); ++i)
                    found += place.titles[i].find("tax") != std::string_view::npos ? 1 : 0;
            }
            benchmark::DoNotOptimize(found);
        };
        bench::cell("a query over the titles below the menu", count, "finding its text in each", rank, find);
    }
}
