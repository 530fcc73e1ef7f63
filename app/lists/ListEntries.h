#pragma once

#include "app/menu/DynamicEntry.h"

#include <string>
#include <vector>

/// What several lists make their entries with.
namespace zv {

[[nodiscard]] DynamicEntry namedEntry(std::string id, std::string const& title);
/// Stands for a whole list that is not to be had.
[[nodiscard]] DynamicEntry unavailableEntry(std::string title, std::string reason);

/// In localized standard order of their sortName; equal names keep their order.
void sortByName(std::vector<DynamicEntry>& entries);
/// Keeps the first entry of each id.
void dropDoubles(std::vector<DynamicEntry>& entries);

} // namespace zv
