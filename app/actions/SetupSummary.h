#pragma once

#include "app/model/SetupTransfer.h"

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

/// The words about a setup, a line each, for whoever decides whether to take it. Names from the file are made safe to show.
namespace zv {

/// Entries of a list that an alert has room for.
inline constexpr std::size_t fewLines = 8;
inline constexpr std::size_t allLines = std::numeric_limits<std::size_t>::max();

/// True where something in it runs programs: the user decides about such.
[[nodiscard]] bool bringsPrograms(Setup const& setup);

/// The parts of the setup; commands with their titles and lines. Lists end after `most` entries, with the number of others.
[[nodiscard]] std::vector<std::string> contentLines(Setup const& setup, std::size_t most);
/// What stays as it is here: locked preferences, and parts that this version does not know.
[[nodiscard]] std::vector<std::string> leftOutLines(Setup const& setup, std::vector<std::string> const& locked, std::size_t most);
[[nodiscard]] std::vector<std::string> missingLines(std::vector<MissingTarget> const& missing, std::size_t most);

} // namespace zv
