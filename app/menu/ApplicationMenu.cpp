#include "app/menu/ApplicationMenu.h"

#include "app/menu/DisplayText.h"
#include "base/Translation.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <map>

namespace zv {

// TRANSLATORS: the categories have the names that Linux desktops give them in their menus of applications
std::string titleOf(ApplicationCategory category)
{
    switch (category) {
    case ApplicationCategory::accessories:
        return trc("category of applications", "Accessories");
    case ApplicationCategory::development:
        return trc("category of applications", "Development");
    case ApplicationCategory::education:
        return trc("category of applications", "Education");
    case ApplicationCategory::games:
        return trc("category of applications", "Games");
    case ApplicationCategory::graphics:
        return trc("category of applications", "Graphics");
    case ApplicationCategory::internet:
        return trc("category of applications", "Internet");
    case ApplicationCategory::multimedia:
        return trc("category of applications", "Multimedia");
    case ApplicationCategory::office:
        return trc("category of applications", "Office");
    case ApplicationCategory::science:
        return trc("category of applications", "Science");
    case ApplicationCategory::settings:
        return trc("category of applications", "Settings");
    case ApplicationCategory::system:
        return trc("category of applications", "System");
    case ApplicationCategory::other:
        break;
    }
    return trc("category of applications", "Other");
}

std::vector<DynamicEntry> applicationEntries(std::vector<InstalledApplication> const& applications)
{
    std::vector<DynamicEntry> entries;
    entries.reserve(applications.size());
    for (auto const& application : applications) {
        DynamicEntry entry;
        entry.id = application.file.toString();
        entry.title = displayText(application.name);
        entry.sortName = entry.title;
        entry.url = entry.fileURL = application.file;
        entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(), [](auto const& a, auto const& b) {
        auto const order = localizedStandardCompare(a.sortName, b.sortName);
        return order != 0 ? order < 0 : a.id < b.id;
    });
    return entries;
}

std::vector<ApplicationGroup> groupedByCategory(std::vector<InstalledApplication> const& applications)
{
    std::map<ApplicationCategory, std::vector<InstalledApplication>> byCategory; // the categories stand in the order of their titles
    for (auto const& application : applications)
        byCategory[application.category].push_back(application);
    std::vector<ApplicationGroup> groups;
    for (auto const& [category, members] : byCategory)
        groups.push_back({ category, applicationEntries(members) });
    return groups;
}

} // namespace zv
