#pragma once

#include "cli/CommandContext.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zv {

/// The file named by the argument, relative to the current folder.
[[nodiscard]] Url fileArgument(CommandContext& context, std::string const& argument);

/// The bytes of the named file, or of standard input for "-".
[[nodiscard]] Result<std::vector<std::byte>> readFileArgument(CommandContext& context, std::string const& argument);
/// Writes the named file whole, or to standard output for "-".
[[nodiscard]] Result<void> writeFileArgument(CommandContext& context, std::string const& argument, std::vector<std::byte> const& bytes);

} // namespace zv
