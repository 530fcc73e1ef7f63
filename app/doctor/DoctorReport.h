#pragma once

#include "app/doctor/DoctorCheck.h"
#include "app/model/MenuItem.h"
#include "platform/files/UserDefaults.h"
#include "platform/program/Environment.h"

#include <span>
#include <string>
#include <vector>

namespace zv {

/// All that a report of a fault may tell without asking about each line: no paths and no titles, as those are the user's.
[[nodiscard]] std::string doctorReport(
    std::span<DoctorCheck const> checks, UserDefaults const& settings, std::vector<MenuItem> const& menu, Environment const& environment);

} // namespace zv
