#pragma once

#include "cli/Command.h"

#include <string>

namespace zv {

/// The answer to a question on standard input; none counts as no.
[[nodiscard]] bool agrees(CommandContext& context);

/// Export and import of all that the user has made.
[[nodiscard]] ExitStatus exportSetup(std::string const& file, CommandContext& context);

enum class SetupImport { check, ask, take };
[[nodiscard]] ExitStatus importSetup(std::string const& file, SetupImport how, CommandContext& context);

} // namespace zv
