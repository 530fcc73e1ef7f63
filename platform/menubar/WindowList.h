#pragma once

#include "platform/desk/Geometry.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// What the window server tells of a window; what it does not tell is absent.
struct WindowInfo {
    std::string ownerName;
    int layer = 0;
    std::optional<Rect> bounds; ///< origin at the primary screen's top left corner, y grows downwards
    std::optional<std::int64_t> number;
    bool isOnscreen = false;
};

/// The windows of all programs. A system that has no such list tells its menu bars in
/// these terms: windows of "Window Server" at mainMenuLevel(). Main thread only.
class WindowList {
public:
    virtual ~WindowList() = default;

    /// Nothing when there is no such window or it cannot be read.
    [[nodiscard]] virtual std::optional<WindowInfo> window(std::uint32_t number) const = 0;
    /// In the window list's order; a system may leave out windows below mainMenuLevel().
    [[nodiscard]] virtual std::vector<WindowInfo> onScreenWindows() const = 0;
    [[nodiscard]] virtual int mainMenuLevel() const = 0;

    /// Called when a menu bar may have moved, appeared or gone, on systems that tell;
    /// elsewhere never. Set by its one user.
    std::function<void()> onMenuBarsChanged;
};

} // namespace zv
