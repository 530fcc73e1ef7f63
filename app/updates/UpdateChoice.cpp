#include "app/updates/UpdateChoice.h"

#include "app/updates/VersionOrder.h"
#include "base/Url.h"
#include "base/Utf8.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

namespace zv {

namespace {

bool suitsSystem(AppcastItem const& item, UpdateCriteria const& criteria)
{
    if (!item.operatingSystem.empty() && item.operatingSystem != criteria.operatingSystem)
        return false;
    if (criteria.systemVersion.empty())
        return true;
    bool const tooOld = !item.minimumSystemVersion.empty() && compareVersions(criteria.systemVersion, item.minimumSystemVersion) < 0;
    bool const tooNew = !item.maximumSystemVersion.empty() && compareVersions(criteria.systemVersion, item.maximumSystemVersion) > 0;
    return !tooOld && !tooNew;
}

/// Longer than any version, and short enough for a line.
constexpr std::size_t longestVersion = 100;

bool isVersion(std::string const& text) { return !text.empty() && text.size() <= longestVersion; }

/// Rejects other addresses, which would open something on this computer.
bool isWebPage(std::string const& address)
{
    auto const url = Url::parse(address);
    return url && (url->scheme() == "https" || url->scheme() == "http");
}

/// Rejects other files, which the desktop would open as what their names say.
bool isPackage(std::string const& address, UpdateCriteria const& criteria)
{
    auto const path = std::string_view(address).substr(0, address.find_first_of("?#"));
    return std::any_of(criteria.packageEndings.begin(), criteria.packageEndings.end(), [path](auto const& ending) { return path.ends_with(ending); });
}

bool isCritical(AppcastItem const& item, UpdateCriteria const& criteria)
{
    return item.isCritical && (item.criticalBefore.empty() || compareVersions(criteria.currentVersion, item.criticalBefore) < 0);
}

bool suits(AppcastItem const& item, UpdateCriteria const& criteria)
{
    bool const inChannel = item.channel.empty() || criteria.channels.contains(item.channel);
    bool const isSkipped = !isCritical(item, criteria) && !criteria.skippedVersion.empty() && item.version == criteria.skippedVersion;
    bool const isNamed = isVersion(item.version) && (item.displayVersion.empty() || isVersion(item.displayVersion));
    bool const hasSomethingToOffer = isPackage(item.downloadAddress, criteria) || isWebPage(item.releasePage);
    return inChannel && !isSkipped && isNamed && hasSomethingToOffer && suitsSystem(item, criteria)
        && compareVersions(item.version, criteria.currentVersion) > 0;
}

/// Resolves "#39", "#x2019".
std::optional<char32_t> referredCharacter(std::string_view name)
{
    if (!name.starts_with('#'))
        return std::nullopt;
    bool const isHexadecimal = name.starts_with("#x");
    auto const digits = name.substr(isHexadecimal ? 2 : 1);
    std::uint32_t number = 0;
    auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, isHexadecimal ? 16 : 10);
    bool const isWhole = error == std::errc() && end == digits.data() + digits.size();
    return isWhole && number >= ' ' ? std::optional<char32_t>(number) : std::nullopt;
}

/// The text that the reference stands for; nothing for an unknown one.
std::optional<std::string> resolvedReference(std::string_view name)
{
    if (auto const character = referredCharacter(name)) {
        std::string text;
        appendUtf8(text, *character);
        return text;
    }
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 6> references { { { "amp", "&" }, { "lt", "<" }, { "gt", ">" }, { "quot", "\"" },
        { "apos", "'" }, { "nbsp", " " } } };
    for (auto const& [known, text] : references) {
        if (known == name)
            return std::string(text);
    }
    return std::nullopt;
}

bool endsLine(std::string_view tag)
{
    static constexpr std::array<std::string_view, 8> ends { "br", "br/", "br /", "/p", "/li", "/h1", "/h2", "/h3" };
    for (auto const end : ends) {
        if (tag == end)
            return true;
    }
    return false;
}

/// Longer text is no markup: bounds the search for the end of a stray sign.
constexpr std::size_t longestTag = 1000;
constexpr std::size_t longestReference = 8;

/// Takes the tag or reference at `start`; returns the position behind it.
std::size_t takeMarkup(std::string_view notes, std::size_t start, std::string& text)
{
    bool const isTag = notes[start] == '<';
    auto const inside = notes.substr(start + 1, isTag ? longestTag : longestReference);
    auto const length = inside.find(isTag ? '>' : ';');
    if (length == std::string_view::npos) {
        text += notes[start];
        return start + 1;
    }
    auto const name = lowerCased(inside.substr(0, length));
    if (!isTag)
        text += resolvedReference(name).value_or(std::string(notes.substr(start, length + 2)));
    else if (name == "li" || name.starts_with("li "))
        text += "• ";
    else if (endsLine(name))
        text += '\n';
    return start + length + 2;
}

std::string withoutBlankRuns(std::string_view text)
{
    std::string tidy;
    int breaks = 2;
    for (char const c : text) {
        breaks = c == '\n' ? breaks + 1 : (c == ' ' && breaks > 0 ? breaks : 0);
        if (breaks <= 2 && !(c == ' ' && breaks > 0))
            tidy += c;
    }
    return std::string(trimmed(tidy));
}

} // namespace

std::optional<AppcastItem> chooseUpdate(std::vector<AppcastItem> const& items, UpdateCriteria const& criteria)
{
    AppcastItem const* best = nullptr;
    for (auto const& item : items) {
        if (suits(item, criteria) && (!best || compareVersions(item.version, best->version) > 0))
            best = &item;
    }
    if (!best)
        return std::nullopt;
    auto chosen = *best;
    chosen.isCritical = isCritical(chosen, criteria);
    if (!isWebPage(chosen.releasePage))
        chosen.releasePage.clear();
    if (!isPackage(chosen.downloadAddress, criteria))
        chosen.downloadAddress.clear();
    return chosen;
}

std::string plainTextOfNotes(std::string const& notes)
{
    std::string text;
    for (std::size_t i = 0; i < notes.size();) {
        if (notes[i] == '<' || notes[i] == '&')
            i = takeMarkup(notes, i, text);
        else
            text += notes[i++];
    }
    return withoutBlankRuns(text);
}

} // namespace zv
