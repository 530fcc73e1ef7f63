#include "app/menu/MachineLists.h"

#include "app/menu/DisplayText.h"
#include "app/model/MenuItemKind.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <set>
#include <utility>

namespace zv {

namespace {

DynamicEntry namedEntry(std::string id, std::string const& title)
{
    DynamicEntry entry;
    entry.id = std::move(id);
    entry.title = displayText(title);
    entry.sortName = entry.title;
    return entry;
}

/// An entry that does something needs a URL; an application without a file of its own
/// gets one that names it.
Url urlNaming(RunningApplication const& application)
{
    if (application.url)
        return *application.url;
    auto const escaped = Url::fromPath("/" + application.id).toString().substr(std::string_view("file:///").size());
    return Url::parse("application:" + escaped).value_or(Url::fromPath("/"));
}

DynamicEntry entryFor(RunningApplication const& application)
{
    auto entry = namedEntry(application.id, application.name);
    entry.url = urlNaming(application);
    entry.fileURL = application.url;
    entry.isPackage = true; // a bundle is a folder: it must not become a submenu
    entry.action = DynamicEntryAction::activateApplication;
    return entry;
}

std::string titleOf(Volume const& volume)
{
    if (!volume.label.empty())
        return volume.label;
    if (!volume.root.isFile())
        return volume.root.toString();
    return volume.root.path() == "/" ? "File System" : volume.root.lastPathComponent();
}

DynamicEntry entryFor(Volume const& volume)
{
    auto entry = namedEntry(volume.root.toString(), titleOf(volume));
    entry.url = volume.root;
    entry.fileURL = volume.root;
    entry.isDirectory = volume.root.isFile();
    return entry;
}

DynamicEntry entryFor(SettingsPane const& pane)
{
    auto entry = namedEntry(pane.id, pane.title);
    entry.url = pane.url;
    entry.fileURL = pane.fileURL;
    entry.isPackage = true;
    if (!pane.missingProgram.empty())
        entry.unavailabilityReason = displayText(pane.missingProgram) + " is not installed.";
    return entry;
}

void dropDoubles(std::vector<DynamicEntry>& entries)
{
    std::set<std::string> seen;
    std::erase_if(entries, [&seen](DynamicEntry const& entry) { return !seen.insert(entry.id).second; });
}

} // namespace

void sortByName(std::vector<DynamicEntry>& entries)
{
    std::vector<std::pair<std::string, std::size_t>> keys;
    keys.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i)
        keys.emplace_back(sortKey(entries[i].sortName), i);
    std::sort(keys.begin(), keys.end(), [](auto const& a, auto const& b) {
        int const order = compareSortKeys(a.first, b.first);
        return order != 0 ? order < 0 : a.second < b.second;
    });

    std::vector<DynamicEntry> sorted;
    sorted.reserve(entries.size());
    for (auto const& [key, index] : keys)
        sorted.push_back(std::move(entries[index]));
    entries = std::move(sorted);
}

DynamicEntry unavailableEntry(std::string title, std::string reason)
{
    auto entry = namedEntry("unavailable", title);
    entry.unavailabilityReason = std::move(reason);
    return entry;
}

std::vector<DynamicEntry> runningApplicationEntries(RunningApplications::List const& applications)
{
    if (!applications) {
        auto const title = std::string(MenuItemKind(MenuItemKind::runningApplications).defaultTitle());
        return { unavailableEntry(title, "This desktop does not tell which applications are running.") };
    }
    std::vector<DynamicEntry> entries;
    for (auto const& application : *applications)
        entries.push_back(entryFor(application));
    dropDoubles(entries);
    sortByName(entries);
    return entries;
}

std::vector<DynamicEntry> volumeEntries(std::vector<Volume> volumes)
{
    auto const firstOther = std::stable_partition(volumes.begin(), volumes.end(), [](auto const& volume) { return volume.isBoot; });
    std::vector<DynamicEntry> others;
    std::transform(firstOther, volumes.end(), std::back_inserter(others), [](auto const& volume) { return entryFor(volume); });
    sortByName(others);

    std::vector<DynamicEntry> entries;
    std::transform(volumes.begin(), firstOther, std::back_inserter(entries), [](auto const& volume) { return entryFor(volume); });
    std::move(others.begin(), others.end(), std::back_inserter(entries));
    dropDoubles(entries);
    return entries;
}

std::vector<DynamicEntry> settingsPaneEntries(std::vector<SettingsPane> const& panes)
{
    std::vector<DynamicEntry> entries;
    for (auto const& pane : panes)
        entries.push_back(entryFor(pane));
    dropDoubles(entries);
    sortByName(entries);
    return entries;
}

} // namespace zv
