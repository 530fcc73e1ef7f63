#pragma once

#include "app/menu/DynamicEntry.h"
#include "app/model/MenuItemKind.h"

#include <cstdint>
#include <string>
#include <vector>

/// Helpers for the lists' entries.
namespace zv {

[[nodiscard]] DynamicEntry namedEntry(std::string id, std::string const& title);
/// The only entry of a list that is unavailable.
[[nodiscard]] DynamicEntry unavailableEntry(std::string title, std::string reason);

/// Sorts by sortName in localized standard order; equal names keep their order.
void sortByName(std::vector<DynamicEntry>& entries);
/// Keeps the first entry of each id.
void dropDoubles(std::vector<DynamicEntry>& entries);

/// What the user keeps in the list of recent things, and, after a separator, up to `limit` of the others.
[[nodiscard]] std::vector<DynamicEntry> keptFirst(
    MenuItemKind::Case list, std::vector<DynamicEntry> kept, std::vector<DynamicEntry> const& recent, std::int64_t limit);

} // namespace zv
