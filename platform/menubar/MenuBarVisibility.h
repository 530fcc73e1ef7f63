#pragma once

namespace zv {

/// Whether the active space shows its menu bar at all. Present only where the system can
/// tell. Main thread only.
class MenuBarVisibility {
public:
    virtual ~MenuBarVisibility() = default;
    [[nodiscard]] virtual bool isMenuBarVisibleOnActiveSpace() const = 0;
};

} // namespace zv
