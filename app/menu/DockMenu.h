#pragma once

#include "app/model/MenuItem.h"
#include "platform/files/Resources.h"

#include <vector>

namespace zv {

/// The entries of every Dock submenu: the resource "DockMenu", a menu document. Empty when
/// it is missing or cannot be read.
[[nodiscard]] std::vector<MenuItem> loadDockMenu(Resources const& resources);

} // namespace zv
