#include "app/settings/LibraryPalette.h"

#include "app/settings/SearchWords.h"
#include "base/Translation.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace zv {

namespace {

constexpr int entriesProperty = 0;

std::string applicationsGroup() { return tr("Installed Applications"); }

std::string withoutExtension(std::string name) { return name.substr(0, name.find_last_of('.')); }

LibraryEntry entryFor(InstalledApplication const& application)
{
    LibraryEntry entry;
    entry.id = "application:" + application.file.path();
    entry.title = application.name;
    entry.localizedDescription = tr("Opens %1.", application.name);
    entry.group = applicationsGroup();
    entry.itemTemplate = MenuItem::ofKind(MenuItemKind::fsObject);
    entry.itemTemplate.setOwnTitle(application.name);
    entry.itemTemplate.location.emplace().path = application.file.path();
    return entry;
}

/// Adds the file's name to applications that are called alike, which stand one after the other.
void tellApart(std::span<LibraryEntry> entries)
{
    std::vector<bool> isAlike(entries.size());
    for (std::size_t i = 1; i < entries.size(); ++i) {
        if (entries[i].title == entries[i - 1].title)
            isAlike[i] = isAlike[i - 1] = true;
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (isAlike[i])
            // TRANSLATORS: an application's name, and that of its file, which tells it from another one of that name
            entries[i].title = tr("%1 (%2)", entries[i].title, withoutExtension(Url::fromPath(*entries[i].itemTemplate.location->path).lastPathComponent()));
    }
}

bool matches(LibraryEntry const& entry, SearchWords const& words)
{
    return words.isEmpty() || words.areIn(foldedForSearch(entry.title + "\n" + entry.localizedDescription + "\n" + entry.group));
}

void collectFound(std::vector<MenuItem> const& items, SearchWords const& words, std::vector<MenuItem const*>& found)
{
    for (auto const& item : items) {
        if (found.size() >= LibraryPalette::mostItemsFound)
            return;
        if (item.kind != MenuItemKind::separator && words.areIn(foldedForSearch(item.displayTitle())))
            found.push_back(&item);
        collectFound(item.children, words, found);
    }
}

} // namespace

std::vector<LibraryPalette::Group> LibraryPalette::groups(std::string_view search) const
{
    m_registrar.access(entriesProperty);
    SearchWords const words(search);
    std::vector<Group> groups;
    for (auto const& entry : m_entries) {
        if (!matches(entry, words))
            continue;
        auto group = std::find_if(groups.begin(), groups.end(), [&](auto const& g) { return g.title == entry.group; });
        if (group == groups.end())
            group = groups.insert(groups.end(), { entry.group, {} });
        group->entries.push_back(&entry);
    }
    return groups;
}

std::vector<MenuItem const*> LibraryPalette::itemsFound(std::vector<MenuItem> const& items, std::string_view search)
{
    std::vector<MenuItem const*> found;
    if (SearchWords const words(search); !words.isEmpty())
        collectFound(items, words, found);
    return found;
}

void LibraryPalette::setApplications(std::vector<InstalledApplication> applications)
{
    std::erase_if(m_entries, [group = applicationsGroup()](auto const& entry) { return entry.group == group; });
    std::sort(applications.begin(), applications.end(), [](auto const& a, auto const& b) { return localizedStandardCompare(a.name, b.name) < 0; });
    auto const first = m_entries.size();
    std::transform(applications.begin(), applications.end(), std::back_inserter(m_entries), entryFor);
    tellApart(std::span(m_entries).subspan(first));
    m_registrar.changed(entriesProperty);
}

LibraryEntry const* LibraryPalette::entry(std::string_view id) const
{
    auto const found = std::find_if(m_entries.begin(), m_entries.end(), [&](auto const& entry) { return entry.id == id; });
    return found == m_entries.end() ? nullptr : &*found;
}

} // namespace zv
