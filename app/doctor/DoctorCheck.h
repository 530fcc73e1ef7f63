#pragma once

#include <optional>
#include <span>
#include <string>

namespace zv {

/// The state of one thing that the program can do on this desktop.
///
/// To add a check:
/// 1. platform/program/DesktopFindings.h: what was found, as a fact without words; MacFindings.h for a Mac.
/// 2. platform/linux/doctor: DesktopSurvey looks, or DisplaySurvey where it takes a display; Survey.mm on a Mac. Facts
///    that any system can tell need neither: ProgramChecks looks itself.
/// 3. DesktopChecks.cpp, MacChecks.cpp or ProgramChecks.cpp: what it means, and what to do about it.
/// 4. tests/app/doctor: a row of what is wanting; a check without one fails there.
struct DoctorCheck {
    enum class State { ok, limited, missing };

    std::string name; ///< "Hotkeys"
    State state = State::ok;
    std::string explanation; ///< what works and what does not, and why
    std::string remedy; ///< what the user can do; empty for nothing

    friend bool operator==(DoctorCheck const&, DoctorCheck const&) = default;
};

/// The note in the settings; empty when all is well.
[[nodiscard]] std::optional<std::string> noteOf(DoctorCheck const& check);

/// A line for each check, its remedy below it.
[[nodiscard]] std::string doctorText(std::span<DoctorCheck const> checks);
/// [{"name":…,"state":"ok"|"limited"|"missing","explanation":…,"remedy":…}]; no remedy if it is empty.
[[nodiscard]] std::string doctorJson(std::span<DoctorCheck const> checks);

} // namespace zv
