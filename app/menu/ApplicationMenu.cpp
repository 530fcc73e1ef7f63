#include "app/menu/ApplicationMenu.h"

#include "app/menu/DisplayText.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <map>

namespace zv {

std::string_view titleOf(ApplicationCategory category)
{
    switch (category) {
    case ApplicationCategory::accessories:
        return "Accessories";
    case ApplicationCategory::development:
        return "Development";
    case ApplicationCategory::education:
        return "Education";
    case ApplicationCategory::games:
        return "Games";
    case ApplicationCategory::graphics:
        return "Graphics";
    case ApplicationCategory::internet:
        return "Internet";
    case ApplicationCategory::multimedia:
        return "Multimedia";
    case ApplicationCategory::office:
        return "Office";
    case ApplicationCategory::science:
        return "Science";
    case ApplicationCategory::settings:
        return "Settings";
    case ApplicationCategory::system:
        return "System";
    case ApplicationCategory::other:
        break;
    }
    return "Other";
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
