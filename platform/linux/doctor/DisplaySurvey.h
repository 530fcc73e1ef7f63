#pragma once

#include "platform/program/DesktopFindings.h"
#include "platform/program/Environment.h"

namespace zv {

/// Fills in the findings from the display and the toolkit. Shows nothing.
void surveyDisplay(Environment const& environment, DesktopFindings& findings);

} // namespace zv
