#pragma once

#include "app/doctor/DoctorCheck.h"

namespace zv {

enum class OverlaySupport {
    onPanels,
    noPanel, ///< no panel lies along an edge of a screen now
    none,
};

/// Checks whether a click on the panel's left end can open the menu.
[[nodiscard]] DoctorCheck overlayCheck(OverlaySupport support);

} // namespace zv
