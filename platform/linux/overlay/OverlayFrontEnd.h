#pragma once

#include "app/doctor/OverlayCheck.h"
#include "platform/linux/toolkit/DisplayServer.h"
#include "platform/menubar/Presence.h"

#include <memory>

namespace zv {

/// What the overlay needs of the desktop, all over one connection of its own to the X server.
class OverlayFrontEnd {
public:
    /// Null where the desktop gives no program a place on its panel, as on Wayland.
    [[nodiscard]] static std::unique_ptr<OverlayFrontEnd> make(SessionKind session);
    /// What there would be, found out without making it; for `doctor`. Takes an application object.
    [[nodiscard]] static OverlaySupport support(SessionKind session);
    virtual ~OverlayFrontEnd() = default;

    [[nodiscard]] virtual OverlaySeams seams() = 0;
};

} // namespace zv
