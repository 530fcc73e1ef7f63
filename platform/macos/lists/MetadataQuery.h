#pragma once

#include "platform/lists/RecentFiles.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Questions to the Mac's index of files, in plain C++.
namespace zv {

/// The query in the index's own language (developer.apple.com, File Metadata Query Expression
/// Syntax); the types are uniform type identifiers.
[[nodiscard]] std::string metadataQueryString(RecentFilesQuestion const& question);

/// The files of the first `limit` results. A result without a path is left out, not
/// replaced.
[[nodiscard]] std::vector<RecentFile> firstFiles(
    std::size_t resultCount, std::size_t limit, std::function<std::optional<std::string>(std::size_t index)> const& pathOfResult);

} // namespace zv
