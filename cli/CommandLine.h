#pragma once

#include "cli/Command.h"

#include <span>
#include <string>

namespace zv {

/// Every command, in the order in which --help names them.
[[nodiscard]] std::span<Command const* const> commandTable();

/// Runs the command that the arguments (without the program's name) ask for, and gives the
/// status to exit with: 0 done, 1 failed, 2 wrong usage. A failure is one line on `err`.
[[nodiscard]] int runCommandLine(Arguments arguments, CommandContext& context);

} // namespace zv
