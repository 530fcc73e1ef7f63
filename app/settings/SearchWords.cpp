#include "app/settings/SearchWords.h"

#include "platform/text/Text.h"

#include <algorithm>
#include <sstream>

namespace zv {

SearchWords::SearchWords(std::string_view typed)
{
    std::istringstream stream(foldedForSearch(typed));
    for (std::string word; stream >> word;)
        m_words.push_back(word);
}

bool SearchWords::areIn(std::string_view folded) const
{
    return std::all_of(m_words.begin(), m_words.end(), [&](auto const& word) { return folded.find(word) != std::string_view::npos; });
}

} // namespace zv
