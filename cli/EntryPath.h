#pragma once

#include "app/menu/Menu.h"
#include "base/Result.h"

#include <functional>
#include <memory>
#include <span>
#include <string>

namespace zv {

/// Finds the entry by the titles, one a level; `open` fills each submenu on the way. Ignores case
/// and accents where no title matches exactly. The failure is a sentence that says how far the
/// titles led.
[[nodiscard]] Result<MenuEntry> entryAt(std::shared_ptr<Menu> menu, std::span<std::string const> titles, std::function<void(Menu&)> const& open);

} // namespace zv
