#include "app/lists/ListEntries.h"

#include "app/menu/DisplayText.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <set>
#include <utility>

namespace zv {

DynamicEntry namedEntry(std::string id, std::string const& title)
{
    DynamicEntry entry;
    entry.id = std::move(id);
    entry.title = displayText(title);
    entry.sortName = entry.title;
    return entry;
}

DynamicEntry unavailableEntry(std::string title, std::string reason)
{
    auto entry = namedEntry("unavailable", title);
    entry.unavailabilityReason = std::move(reason);
    return entry;
}

void sortByName(std::vector<DynamicEntry>& entries)
{
    std::vector<std::pair<std::string, std::size_t>> keys;
    keys.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i)
        keys.emplace_back(sortKey(entries[i].sortName), i);
    std::stable_sort(keys.begin(), keys.end(), [](auto const& a, auto const& b) { return compareSortKeys(a.first, b.first) < 0; });

    std::vector<DynamicEntry> sorted;
    sorted.reserve(entries.size());
    for (auto const& [key, index] : keys)
        sorted.push_back(std::move(entries[index]));
    entries = std::move(sorted);
}

void dropDoubles(std::vector<DynamicEntry>& entries)
{
    std::set<std::string> seen;
    std::erase_if(entries, [&seen](DynamicEntry const& entry) { return !seen.insert(entry.id).second; });
}

std::vector<DynamicEntry> keptFirst(MenuItemKind::Case list, std::vector<DynamicEntry> kept, std::vector<DynamicEntry> const& recent, std::int64_t limit)
{
    std::set<std::string> ids;
    auto shown = std::move(kept);
    for (auto& entry : shown) {
        entry.recentList = list;
        ids.insert(entry.id);
    }
    if (!shown.empty())
        shown.push_back({ .isSeparator = true });
    for (auto const& entry : recent) {
        if (limit <= 0 || ids.contains(entry.id))
            continue;
        --limit;
        shown.push_back(entry);
        if (entry.url && !entry.unavailabilityReason)
            shown.back().recentList = list;
    }
    return shown;
}

} // namespace zv
