#pragma once

#include "cli/Command.h"

#include <span>
#include <string>

namespace zv {

/// Every command, in the order in which --help names them.
[[nodiscard]] std::span<Command const* const> commandTable();

/// Whether the arguments (without the program's name) are a command. A desktop may start the
/// program with settings of its own, such as "-AppleLanguages (de)": they begin with a single "-".
[[nodiscard]] bool asksForCommand(Arguments arguments);

/// Runs the command in the arguments (without the program's name) and returns the exit status: 0
/// done, 1 failed, 2 wrong usage. A failure is one line on `err`.
[[nodiscard]] int runCommandLine(Arguments arguments, CommandContext& context);

} // namespace zv
