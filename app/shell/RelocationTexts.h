#pragma once

#include "base/Translation.h"

/// Texts about moving the program, beside the alerts, which Relocation words.
namespace zv::relocationTexts {

inline constexpr Sentence entryNotWritten = mark("The application entry could not be written.");

} // namespace zv::relocationTexts
