#pragma once

#include "app/doctor/DoctorCheck.h"
#include "platform/program/DesktopFindings.h"

#include <vector>

namespace zv {

/// The checks made of the findings, with a remedy for each that is wanting.
[[nodiscard]] std::vector<DoctorCheck> desktopChecks(DesktopFindings const& findings);

} // namespace zv
