#pragma once

#include "app/doctor/DoctorCheck.h"
#include "platform/program/MacFindings.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The checks made of the findings, with a remedy for each that is wanting.
[[nodiscard]] std::vector<DoctorCheck> macChecks(MacFindings const& findings);

/// The findings as text, for the running program to hand to a command.
[[nodiscard]] std::string encoded(MacFindings const& findings);
/// Empty when the text holds no findings.
[[nodiscard]] std::optional<MacFindings> decodedMacFindings(std::string_view text);

} // namespace zv
