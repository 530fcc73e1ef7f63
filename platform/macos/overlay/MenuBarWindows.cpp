#include "platform/macos/overlay/MenuBarWindows.h"

#include <limits>
#include <string_view>

namespace zv {

namespace {

/// The owner of the menu bars: the window server draws them itself.
constexpr std::string_view menuBarOwner = "Window Server";

/// Converts from the window list's coordinates (y grows downwards) to screen coordinates.
Rect toScreen(Rect const& bounds, double top) { return { bounds.x, top - bounds.maxY(), bounds.width, bounds.height }; }

std::optional<MenuBarID> usableNumber(WindowInfo const& window)
{
    if (!window.number || *window.number < 0 || *window.number > std::numeric_limits<MenuBarID>::max())
        return std::nullopt;
    return static_cast<MenuBarID>(*window.number);
}

} // namespace

std::vector<MenuBar> menuBarsAmong(std::vector<WindowInfo> const& windows, int mainMenuLevel, double top)
{
    std::vector<MenuBar> bars;
    for (auto const& window : windows) {
        if (window.ownerName == menuBarOwner && window.layer == mainMenuLevel && window.bounds)
            bars.push_back({ toScreen(*window.bounds, top), usableNumber(window) });
    }
    return bars;
}

std::optional<Rect> visibleFrameOf(WindowInfo const& window, double top)
{
    return window.isOnscreen && window.bounds ? std::optional(toScreen(*window.bounds, top)) : std::nullopt;
}

} // namespace zv
