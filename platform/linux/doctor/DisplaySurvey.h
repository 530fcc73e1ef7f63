#pragma once

#include "platform/program/DesktopFindings.h"
#include "platform/program/Environment.h"

namespace zv {

/// Fills in what the display and the toolkit tell. Shows nothing.
void surveyDisplay(Environment const& environment, DesktopFindings& findings);

} // namespace zv
