#include "app/updates/KresUpdateChannel.h"

#include "platform/text/Text.h"

#include <algorithm>
#include <array>
#include <string>

namespace zv {

namespace {

bool isLetter(char c) { return c >= 'a' && c <= 'z'; }

bool isMarker(std::string_view word)
{
    static constexpr std::array<std::string_view, 5> markers { "a", "alpha", "b", "beta", "rc" };
    return std::find(markers.begin(), markers.end(), word) != markers.end();
}

bool followsDigit(std::string_view before)
{
    auto const last = before.find_last_not_of(" .-_");
    return last != std::string_view::npos && before[last] >= '0' && before[last] <= '9';
}

} // namespace

bool isPreReleaseVersion(std::string_view version)
{
    auto const text = lowerCased(version);
    auto const all = std::string_view(text);
    for (auto start = std::find_if(text.begin(), text.end(), isLetter); start != text.end();) {
        auto const end = std::find_if_not(start, text.end(), isLetter);
        auto const offset = static_cast<std::size_t>(start - text.begin());
        if (isMarker(all.substr(offset, static_cast<std::size_t>(end - start))) && followsDigit(all.substr(0, offset)))
            return true;
        start = std::find_if(end, text.end(), isLetter);
    }
    return false;
}

std::set<std::string> KresUpdateChannelDelegate::allowedChannels() const
{
    auto const* version = m_resources.information().string("CFBundleShortVersionString");
    bool const isPreRelease = version && isPreReleaseVersion(*version);
    return isPreRelease ? std::set<std::string> { "beta" } : std::set<std::string> {};
}

} // namespace zv
