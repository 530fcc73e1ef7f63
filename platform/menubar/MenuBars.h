#pragma once

#include "platform/desk/Geometry.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace zv {

using MenuBarID = std::uint32_t;

/// A menu bar, or the panel that stands for one, in screen coordinates.
struct MenuBar {
    Rect frame;
    std::optional<MenuBarID> id; ///< absent where frame() cannot tell
    friend bool operator==(MenuBar const&, MenuBar const&) = default;
};

/// The menu bars of all screens. Main thread only.
class MenuBars {
public:
    virtual ~MenuBars() = default;

    /// The menu bars on screen, in the system's order. Looks through all windows: may be slow.
    [[nodiscard]] virtual std::vector<MenuBar> onScreen() const = 0;
    /// The frame of this menu bar alone; nothing while it is hidden, and when it has gone.
    [[nodiscard]] virtual std::optional<Rect> frame(MenuBarID id) const = 0;

    /// Whether every change is told, by onChanged or by the screens' and the workspace's events: then nobody has to look
    /// now and then.
    [[nodiscard]] virtual bool tellsEveryChange() const { return false; }

    /// Called when a menu bar may have moved, appeared or gone, on systems that tell;
    /// elsewhere never. Set by its one user.
    std::function<void()> onChanged;
};

} // namespace zv
