#include "app/search/SearchQuery.h"

#include "base/Split.h"
#include "platform/text/Text.h"

#include <algorithm>

namespace zv {

namespace {

bool isAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

bool isAsciiLetterOrDigit(char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9'); }

/// Whether a character of the block of general punctuation, U+2000 to U+206F, ends at the place.
bool endsPunctuation(std::string_view title, std::size_t place)
{
    auto const start = place >= 3 ? title.substr(place - 3, 2) : std::string_view();
    return start == "\xE2\x80" || start == "\xE2\x81";
}

bool startsPunctuation(std::string_view title, std::size_t place) { return title.substr(place, 2) == "\xE2\x80" || title.substr(place, 2) == "\xE2\x81"; }

/// Other characters beyond ASCII count as letters.
bool beginsWord(std::string_view title, std::size_t place)
{
    if (place == 0)
        return true;
    auto const before = title[place - 1];
    return isAscii(before) ? !isAsciiLetterOrDigit(before) : endsPunctuation(title, place);
}

bool endsWord(std::string_view title, std::size_t place)
{
    if (place == title.size())
        return true;
    return isAscii(title[place]) ? !isAsciiLetterOrDigit(title[place]) : startsPunctuation(title, place);
}

} // namespace

SearchQuery::SearchQuery(std::string_view typed)
    : m_text(foldedForSearch(trimmed(typed)))
{
    for (auto const word : split(m_text, ' ')) {
        if (!word.empty())
            m_words.emplace_back(word);
    }
}

std::optional<MatchQuality> SearchQuery::match(std::string_view title) const
{
    auto best = std::optional<MatchQuality>();
    for (auto place = title.find(m_text); place != std::string_view::npos && best != MatchQuality::wholeTitle; place = title.find(m_text, place + 1)) {
        auto const quality = qualityAt(title, place);
        best = best ? std::min(*best, quality) : quality;
    }
    return !best && matchesWords(title) ? MatchQuality::scatteredWords : best;
}

MatchQuality SearchQuery::qualityAt(std::string_view title, std::size_t place) const
{
    bool const isWordsEnd = endsWord(title, place + m_text.size());
    if (m_text.size() == title.size())
        return MatchQuality::wholeTitle;
    if (place == 0)
        return isWordsEnd ? MatchQuality::firstWord : MatchQuality::beginning;
    if (!beginsWord(title, place))
        return MatchQuality::middle;
    return isWordsEnd ? MatchQuality::word : MatchQuality::wordBeginning;
}

bool SearchQuery::matchesWords(std::string_view title) const
{
    return m_words.size() > 1 && std::all_of(m_words.begin(), m_words.end(), [&](auto const& word) { return title.find(word) != std::string_view::npos; });
}

} // namespace zv
