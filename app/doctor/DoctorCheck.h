#pragma once

#include <optional>
#include <span>
#include <string>

namespace zv {

/// What was found out about one thing that the program can do on this desktop.
struct DoctorCheck {
    enum class State { ok, limited, missing };

    std::string name; ///< "Hotkeys"
    State state = State::ok;
    std::string explanation; ///< what works and what does not, and why
    std::string remedy; ///< what the user can do; empty for nothing

    friend bool operator==(DoctorCheck const&, DoctorCheck const&) = default;
};

/// What the settings say about it: nothing when all is well.
[[nodiscard]] std::optional<std::string> noteOf(DoctorCheck const& check);

/// A line for each check, its remedy below it.
[[nodiscard]] std::string doctorText(std::span<DoctorCheck const> checks);
/// [{"name":…,"state":"ok"|"limited"|"missing","explanation":…,"remedy":…}]; the remedy only where there is one.
[[nodiscard]] std::string doctorJson(std::span<DoctorCheck const> checks);

} // namespace zv
