#pragma once

#include "platform/program/DesktopFindings.h"

namespace zv {

/// Fills in what the display and the toolkit tell. Shows nothing.
void surveyDisplay(DesktopFindings& findings);

} // namespace zv
