#pragma once

#include "app/doctor/DoctorCheck.h"

namespace zv {

enum class OverlaySupport {
    onPanels,
    noPanel, ///< none is at the top of a screen now
    none,
};

/// Whether a click on the panel's left end can open the menu.
[[nodiscard]] DoctorCheck overlayCheck(OverlaySupport support);

} // namespace zv
