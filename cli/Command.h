#pragma once

#include "cli/CommandContext.h"

#include <span>
#include <string>
#include <string_view>

namespace zv {

/// What the program ends with.
enum class ExitStatus : int { done = 0, failed = 1, wrongUsage = 2 };

using Arguments = std::span<std::string const>;

/// One command of the command line. `run` gets the arguments after the command's name.
struct Command {
    std::string_view name;
    std::string_view usage; ///< the arguments, such as "[--json] NAME…"; may be empty
    std::string_view summary; ///< in a few words, for --help
    ExitStatus (*run)(Arguments arguments, CommandContext& context);
};

/// Writes the one line that says why a command failed.
[[nodiscard]] ExitStatus fail(CommandContext& context, std::string_view message);
/// The same for arguments that the command does not take; shows its usage, too.
[[nodiscard]] ExitStatus failUsage(CommandContext& context, Command const& command, std::string_view message);

} // namespace zv
