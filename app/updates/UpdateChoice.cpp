#include "app/updates/UpdateChoice.h"

#include "app/updates/VersionOrder.h"
#include "base/Text.h"

#include <array>
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

bool suits(AppcastItem const& item, UpdateCriteria const& criteria)
{
    bool const inChannel = item.channel.empty() || criteria.channels.contains(item.channel);
    bool const isSkipped = !item.isCritical && !criteria.skippedVersion.empty() && item.version == criteria.skippedVersion;
    bool const hasSomethingToOffer = !item.version.empty() && (!item.downloadAddress.empty() || !item.releasePage.empty());
    return inChannel && !isSkipped && hasSomethingToOffer && suitsSystem(item, criteria) && compareVersions(item.version, criteria.currentVersion) > 0;
}

std::string resolvedReference(std::string_view name)
{
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 6> references { { { "amp", "&" }, { "lt", "<" }, { "gt", ">" }, { "quot", "\"" },
        { "apos", "'" }, { "nbsp", " " } } };
    for (auto const& [known, text] : references) {
        if (known == name)
            return std::string(text);
    }
    return "&" + std::string(name) + ";";
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

/// Takes the tag or reference that begins at `start`; gives the position behind it.
std::size_t takeMarkup(std::string const& notes, std::size_t start, std::string& text)
{
    char const closing = notes[start] == '<' ? '>' : ';';
    auto const end = notes.find(closing, start);
    bool const isStray = end == std::string::npos || (closing == ';' && end - start > 8);
    if (isStray) {
        text += notes[start];
        return start + 1;
    }
    auto const inside = lowerCased(std::string_view(notes).substr(start + 1, end - start - 1));
    if (closing == ';')
        text += resolvedReference(inside);
    else if (inside == "li" || inside.starts_with("li "))
        text += "• ";
    else if (endsLine(inside))
        text += '\n';
    return end + 1;
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
    return best ? std::optional(*best) : std::nullopt;
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
