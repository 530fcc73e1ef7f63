#pragma once

#include "app/menu/DynamicEntry.h"
#include "app/menu/Menu.h"
#include "platform/desk/TextMeasure.h"

#include <span>

namespace zv {

/// Lines the file names' shortcuts up in one column, flush right just past the widest
/// title. `items` were made for `entries`, pairwise; items beyond those are left alone,
/// and so is everything when no entry has a shortcut.
void applyHotkeyHints(std::span<DynamicEntry const> entries, std::span<MenuEntry> items, TextMeasure const& text);

} // namespace zv
