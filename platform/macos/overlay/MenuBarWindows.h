#pragma once

#include "platform/menubar/MenuBars.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// A window as the window server describes it; unknown properties are absent.
struct WindowInfo {
    std::string ownerName;
    int layer = 0;
    std::optional<Rect> bounds; ///< origin at the primary screen's top left corner, y grows downwards
    std::optional<std::int64_t> number;
    bool isOnscreen = false;
};

/// The menu bars among the windows, in their order; `mainMenuLevel` is the layer of all menu
/// bars, `top` the upper edge of the primary screen.
[[nodiscard]] std::vector<MenuBar> menuBarsAmong(std::vector<WindowInfo> const& windows, int mainMenuLevel, double top);
/// The frame; nothing for a window that is not on screen, or whose place is unknown.
[[nodiscard]] std::optional<Rect> visibleFrameOf(WindowInfo const& window, double top);

} // namespace zv
