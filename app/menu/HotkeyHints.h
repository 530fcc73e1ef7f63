#pragma once

#include "app/menu/DynamicEntry.h"
#include "app/menu/Menu.h"
#include "platform/desk/TextMeasure.h"

#include <span>

namespace zv {

/// Aligns the file names' shortcuts in one column, flush right just past the widest title. `items`
/// were made for `entries`, pairwise; further items are left alone, and so are all if no entry has
/// a shortcut. A shortcut that is not in use is in italics, and the tooltip says why.
void applyHotkeyHints(std::span<DynamicEntry const> entries, std::span<MenuEntry> items, TextMeasure const& text);

} // namespace zv
