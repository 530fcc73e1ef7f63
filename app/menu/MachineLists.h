#pragma once

#include "app/menu/DynamicEntry.h"
#include "platform/lists/NetworkInterfaces.h"
#include "platform/lists/RecentServers.h"
#include "platform/lists/RunningApplications.h"
#include "platform/lists/SettingsPanes.h"
#include "platform/lists/Volumes.h"

#include <cstdint>
#include <vector>

/// How what the system tells becomes the entries of a list: titles, order, reasons.
namespace zv {

[[nodiscard]] std::vector<DynamicEntry> runningApplicationEntries(RunningApplications::List const& applications);
[[nodiscard]] std::vector<DynamicEntry> volumeEntries(std::vector<Volume> volumes);
[[nodiscard]] std::vector<DynamicEntry> recentServerEntries(RecentServers::List const& servers, std::int64_t limit);
[[nodiscard]] std::vector<DynamicEntry> addressEntries(std::vector<InterfaceAddress> addresses);
[[nodiscard]] std::vector<DynamicEntry> settingsPaneEntries(std::vector<SettingsPane> const& panes);

/// In localized standard order of their sortName; equal names keep their order.
void sortByName(std::vector<DynamicEntry>& entries);
/// Stands for a whole list that is not to be had.
[[nodiscard]] DynamicEntry unavailableEntry(std::string title, std::string reason);

} // namespace zv
