#pragma once

#include "platform/linux/overlay/OverlayFrontEnd.h"

#include <memory>

namespace zv {

class ForeignToplevels;
class WaylandGlobals;

/// The overlay on Wayland; null where the compositor has no layer shell. The globals outlive it;
/// the windows may be null.
[[nodiscard]] std::unique_ptr<OverlayFrontEnd> waylandOverlay(WaylandGlobals const& globals, std::shared_ptr<ForeignToplevels> toplevels);

} // namespace zv
