#pragma once

#include "base/Translation.h"
#include "cli/CommandContext.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The program's exit status.
enum class ExitStatus : int { done = 0, failed = 1, wrongUsage = 2 };

using Arguments = std::span<std::string const>;

/// A word that a shell offers, with its meaning if that is not plain.
struct Completion {
    std::string text;
    std::string meaning {};
};

/// A command of the command line. `run` gets the arguments after the command's name.
struct Command {
    std::string_view name;
    std::string_view usage; ///< the arguments, such as "[--json] NAME…"; may be empty
    Sentence summary; ///< in a few words, for --help
    ExitStatus (*run)(Arguments arguments, CommandContext& context);
    /// The operands that may follow those given; null where shells know better, or there is none.
    std::vector<Completion> (*complete)(std::vector<std::string> const& given, CommandContext& context) = nullptr;
};

/// Writes the one-line reason why a command failed.
[[nodiscard]] ExitStatus fail(CommandContext& context, std::string_view message);
/// The same for wrong arguments; shows the command's usage, too.
[[nodiscard]] ExitStatus failUsage(CommandContext& context, Command const& command, std::string_view message);

} // namespace zv
