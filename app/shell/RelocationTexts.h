#pragma once

/// Texts about moving the program, beside the alerts, which Relocation words.
namespace zv::relocationTexts {

inline constexpr char const* entryNotWritten = "The application entry could not be written.";

} // namespace zv::relocationTexts
