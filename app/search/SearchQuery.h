#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// How well a title matches what was typed, the best first.
enum class MatchQuality : std::uint8_t { wholeTitle, firstWord, beginning, word, wordBeginning, middle, scatteredWords };

/// A typed text, as it is compared with titles. Any thread.
class SearchQuery {
public:
    explicit SearchQuery(std::string_view typed);

    /// Nothing that could be looked for was typed.
    [[nodiscard]] bool isEmpty() const { return m_text.empty(); }
    /// Nothing for a title that does not match. Titles come from foldedForSearch().
    [[nodiscard]] std::optional<MatchQuality> match(std::string_view title) const;

private:
    [[nodiscard]] MatchQuality qualityAt(std::string_view title, std::size_t place) const;
    [[nodiscard]] bool matchesWords(std::string_view title) const;

    std::string m_text;
    std::vector<std::string> m_words;
};

} // namespace zv
