#pragma once

#include "app/doctor/DoctorCheck.h"
#include "platform/program/MacFindings.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// What the findings mean for the program, and what to do about each that is wanting.
[[nodiscard]] std::vector<DoctorCheck> macChecks(MacFindings const& findings);

/// As a text that the running program hands to a command.
[[nodiscard]] std::string encoded(MacFindings const& findings);
/// Nothing for a text that holds none.
[[nodiscard]] std::optional<MacFindings> decodedMacFindings(std::string_view text);

} // namespace zv
