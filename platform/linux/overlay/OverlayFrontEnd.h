#pragma once

#include "app/doctor/OverlayCheck.h"
#include "app/menubar/AppleMenuOverlayController.h"

#include <memory>

namespace zv {

/// What the overlay needs of the desktop, all over one connection of its own to the X
/// server; without an X server (on Wayland) there are no screens, and so no overlay.
class OverlayFrontEnd {
public:
    [[nodiscard]] static std::unique_ptr<OverlayFrontEnd> make();
    /// What there would be, found out without making it; for `doctor`.
    [[nodiscard]] static OverlaySupport support();
    virtual ~OverlayFrontEnd() = default;

    /// False: the desktop gives no program a place on its panel.
    [[nodiscard]] virtual bool isSupported() const = 0;
    [[nodiscard]] virtual AppleMenuOverlayServices services(Timers& timers, Clock& clock) = 0;
};

} // namespace zv
