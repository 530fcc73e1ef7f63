#pragma once

/// What moving the program to a place of its own says beside its alerts, which Relocation words.
namespace zv::relocationTexts {

inline constexpr char const* entryNotWritten = "The application entry could not be written.";

} // namespace zv::relocationTexts
