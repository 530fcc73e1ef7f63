#include "app/search/BestMatches.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Titles = std::vector<std::string>;

SearchPlace placeWith(Titles const& titles, Titles way = {})
{
    SearchPlace place { .way = std::move(way), .titles = {}, .folder = std::nullopt, .identities = titles };
    for (auto const& title : titles)
        place.titles.add(title);
    return place;
}

Titles found(std::string const& typed, std::vector<SearchPlace> places, Titles const& chosen = {})
{
    Titles titles;
    auto const all = std::make_shared<std::vector<SearchPlace> const>(std::move(places));
    for (auto const& match : bestMatches({ all }, SearchQuery(typed), ChosenAges(chosen), 6))
        titles.push_back(match.place->identities[match.index]);
    return titles;
}

TEST(BestMatches, WordsAndBeginningsComeBeforeTheMiddle)
{
    struct Row {
        std::string typed;
        Titles titles, found;
        std::string why;
    };
    Row const rows[] = {
        { "tax", { "syntax", "Income tax", "Surtaxes", "My taxes", "Taxes", "Tax 2025", "tax" },
            { "tax", "Tax 2025", "Taxes", "Income tax", "My taxes", "Surtaxes" }, "from the whole title to its middle; no more than asked for" },
        { "tax", { "tax-form", "pretax_tax", "x.tax", "a–tax…" }, { "tax-form", "a–tax…", "pretax_tax", "x.tax" },
            "punctuation ends words; the best place counts" },
        { "uber", { "Über uns", "Rüber" }, { "Über uns", "Rüber" }, "case and accents are ignored" },
        { "2025 tax", { "Taxes 2025.pdf", "2025 Tax.pdf", "Taxes" }, { "2025 Tax.pdf", "Taxes 2025.pdf" }, "words in any order, all of them" },
        { "tax ", { "Taxes" }, { "Taxes" }, "the blank before the next word finds the same" },
        { "b", { "Bb", "Ba" }, { "Ba", "Bb" }, "equals by title" },
        { " ", { "a b" }, { "a b" }, "nothing typed finds all" },
        { "\xff", { "a" }, {}, "what is not text finds nothing" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.typed + ": " + row.why);
        EXPECT_EQ(found(row.typed, { placeWith(row.titles) }), row.found);
    }
}

TEST(BestMatches, ChosenOnesComeFirstThenTheNearerOnes)
{
    std::vector<SearchPlace> const places { placeWith({ "tax a", "syntax" }, { "Documents", "2025" }), placeWith({ "tax b", "pretax" }, { "Documents" }) };
    EXPECT_EQ(found("tax", places), (Titles { "tax b", "tax a", "pretax", "syntax" }));
    EXPECT_EQ(found("tax", places, { "gone", "syntax", "tax a" }), (Titles { "syntax", "tax a", "tax b", "pretax" }));
}

} // namespace
} // namespace zv
