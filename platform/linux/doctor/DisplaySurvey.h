#pragma once

#include "platform/program/DesktopFindings.h"
#include "platform/program/Environment.h"

namespace zv {

/// Fills in the findings from the display and the toolkit; the layer shell is that of a Wayland
/// compositor. Shows nothing.
void surveyDisplay(Environment const& environment, bool hasLayerShell, DesktopFindings& findings);

} // namespace zv
