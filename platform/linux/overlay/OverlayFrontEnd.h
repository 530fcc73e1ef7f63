#pragma once

#include "app/doctor/OverlayCheck.h"
#include "platform/menubar/Presence.h"

#include <memory>

namespace zv {

/// What the overlay needs of the desktop, all over one connection of its own to the X server.
class OverlayFrontEnd {
public:
    /// Null where the desktop gives no program a place on its panel, as on Wayland.
    [[nodiscard]] static std::unique_ptr<OverlayFrontEnd> make();
    /// What there would be, found out without making it; for `doctor`.
    [[nodiscard]] static OverlaySupport support();
    virtual ~OverlayFrontEnd() = default;

    [[nodiscard]] virtual OverlaySeams seams() = 0;
};

} // namespace zv
