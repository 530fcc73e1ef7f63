#pragma once

#import <Cocoa/Cocoa.h>

#include "app/menu/Menu.h"

NS_ASSUME_NONNULL_BEGIN

namespace zv {

/// An item of the system's for an entry of ours, with its action, and a mirror of its submenu.
[[nodiscard]] NSMenuItem* menuItemOf(MenuEntry const& entry);

} // namespace zv

NS_ASSUME_NONNULL_END
