#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// Reading plain files; pipes and devices that stand in a file's place are refused instead
/// of waited for. Any thread.
namespace zv {

enum class FileReading { complete, missing, failed };

/// Hands the file on piece by piece until its end, or until `take` returns false.
[[nodiscard]] FileReading readInPieces(std::string const& path, std::function<bool(std::string_view)> const& take);
/// The whole file; nothing when it cannot be read or is larger than `mostBytes`.
[[nodiscard]] std::optional<std::string> readSmallFile(std::string const& path, std::size_t mostBytes = std::size_t { 8 } << 20);

} // namespace zv
