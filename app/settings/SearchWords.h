#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// What is typed into the settings' search fields: words in any order, whatever their case and accents. Nothing typed
/// matches everything.
class SearchWords {
public:
    explicit SearchWords(std::string_view typed);
    [[nodiscard]] bool isEmpty() const { return m_words.empty(); }
    /// `folded` as by foldedForSearch().
    [[nodiscard]] bool areIn(std::string_view folded) const;

private:
    std::vector<std::string> m_words;
};

} // namespace zv
