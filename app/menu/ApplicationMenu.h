#pragma once

#include "app/menu/DynamicEntry.h"
#include "platform/lists/InstalledApplications.h"

#include <string_view>
#include <vector>

namespace zv {

/// Fewer applications than these are shown in one list.
inline constexpr std::size_t fewestGroupedApplications = 25;

/// The applications of a category, which share a submenu.
struct ApplicationGroup {
    ApplicationCategory category;
    std::vector<DynamicEntry> entries; ///< by name
};

/// The title of a category's submenu.
[[nodiscard]] std::string titleOf(ApplicationCategory category);

/// The applications as entries, by name.
[[nodiscard]] std::vector<DynamicEntry> applicationEntries(std::vector<InstalledApplication> const& applications);

/// The categories that have applications, by title, `other` last.
[[nodiscard]] std::vector<ApplicationGroup> groupedByCategory(std::vector<InstalledApplication> const& applications);

} // namespace zv
