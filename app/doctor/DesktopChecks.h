#pragma once

#include "app/doctor/DoctorCheck.h"
#include "platform/program/DesktopFindings.h"

#include <vector>

namespace zv {

/// What the findings mean for the program, and what to do about each that is wanting.
[[nodiscard]] std::vector<DoctorCheck> desktopChecks(DesktopFindings const& findings);

} // namespace zv
