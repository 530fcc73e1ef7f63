#pragma once

#include "base/Result.h"

#include <cstddef>
#include <span>
#include <string>
#include <sys/types.h>
#include <vector>

/// Files read and written as a whole. Failures are the system's own sentence. Any thread.
namespace zv {

/// The system's sentence for an error number.
[[nodiscard]] std::string systemMessage(int error);
/// The folder part of an absolute path; "/" for what lies at the top.
[[nodiscard]] std::string folderOf(std::string const& path);
/// Where the path leads when it is a symbolic link that is not broken; else the path itself.
[[nodiscard]] std::string followingLink(std::string const& path);

/// Plain files only: pipes and devices are refused instead of waited for. What is larger
/// than `mostBytes` is refused before a byte of it is read.
[[nodiscard]] Result<std::vector<std::byte>> readWholeFile(std::string const& path, std::size_t mostBytes);

/// Makes the folder and its missing parents; an existing folder is fine.
[[nodiscard]] MaybeFailure<> makeFolders(std::string const& path, mode_t mode);

/// The old content or the new one, whatever happens meanwhile: writes `temporaryPath`, which
/// lies in the same folder, syncs it and renames it to `path`, which keeps its permissions;
/// a new file gets those of `mode`. After a failure the temporary file is gone.
[[nodiscard]] MaybeFailure<> replaceFile(std::string const& path, std::string const& temporaryPath, std::span<std::byte const> bytes, mode_t mode);

} // namespace zv
