#pragma once

#include "app/doctor/OverlayCheck.h"
#include "platform/linux/toolkit/DisplayServer.h"
#include "platform/menubar/Presence.h"

#include <QPoint>
#include <QRect>

#include <memory>
#include <optional>

namespace zv {

/// The overlay's seams on the desktop, all over its own connection to the X server.
class OverlayFrontEnd {
public:
    /// Null where the desktop gives no program a place on its panel, as on Wayland.
    [[nodiscard]] static std::unique_ptr<OverlayFrontEnd> make(SessionKind session);
    /// The support that an instance would find, without making one; for `doctor`. Takes an application object.
    [[nodiscard]] static OverlaySupport support(SessionKind session);
    virtual ~OverlayFrontEnd() = default;

    [[nodiscard]] virtual OverlaySeams seams() = 0;
    /// Presses the overlay's panel at that point of the toolkit, if any.
    virtual void pressAt(QPoint point) = 0;
    /// Whether the panel is dark; nothing without one, or where it cannot be read.
    [[nodiscard]] virtual std::optional<bool> isPanelDark() const { return std::nullopt; }
    /// The monitor, in pixels, without the room that panels claim; as a whole where they do not tell.
    [[nodiscard]] virtual QRect freeAreaOf(QRect const& monitor) const { return monitor; }
};

} // namespace zv
