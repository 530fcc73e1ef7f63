#pragma once

#include "base/Result.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <cstddef>
#include <fcntl.h>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

/// Whole-file reading and writing. Pipes and devices in a file's place are refused, not waited
/// for. Failures are the system's own sentence. Any thread.
namespace zv {

/// The system's sentence for an error number.
[[nodiscard]] std::string systemMessage(int error);
/// The folder part of an absolute path; "/" for a top-level path.
[[nodiscard]] std::string folderOf(std::string const& path);
/// The path with the links followed in as much of it as exists.
[[nodiscard]] std::string withoutLinks(std::string const& path);
/// The target of an unbroken symbolic link; else the path itself.
[[nodiscard]] std::string followingLink(std::string const& path);
/// Why nobody can know what lies at the path: a symbolic link there, or on the way there, whose target
/// is away. Nothing where no link is broken.
[[nodiscard]] std::optional<std::string> brokenLinkAt(std::string path);

/// Refuses a file larger than `mostBytes` before reading a byte of it.
[[nodiscard]] Result<std::vector<std::byte>> readWholeFile(std::string const& path, std::size_t mostBytes);
/// Nothing when the file cannot be read, or is larger than `mostBytes`.
[[nodiscard]] std::optional<std::string> readTextFile(std::string const& path, std::size_t mostBytes = std::size_t { 8 } << 20);

enum class FileReading { complete, missing, failed };
/// Passes the file on piece by piece until its end, or until `take` returns false.
[[nodiscard]] FileReading readInPieces(std::string const& path, std::function<bool(std::string_view)> const& take);

/// A file open for reading.
struct PlainFile {
    FileDescriptor descriptor;
    std::size_t size = 0;
};
/// Opens a path, relative to `folder` unless absolute. Fails with the error number.
[[nodiscard]] Result<PlainFile, int> openPlainFile(char const* path, int folder = AT_FDCWD, int moreFlags = 0);
[[nodiscard]] std::optional<std::string> readText(PlainFile const& file, std::size_t mostBytes);
[[nodiscard]] FileReading readInPieces(PlainFile const& file, std::function<bool(std::string_view)> const& take, std::size_t most);

/// Makes the folder and its missing parents; an existing folder is fine.
[[nodiscard]] Result<void> makeFolders(std::string const& path, mode_t mode);

/// Replaces the content atomically: writes `temporaryPath`, which lies in the same folder, syncs
/// it and renames it to `path`, which keeps its permissions; a new file gets `mode`. After a
/// failure the temporary file is gone.
[[nodiscard]] Result<void> replaceFile(std::string const& path, std::string const& temporaryPath, std::span<std::byte const> bytes, mode_t mode);

} // namespace zv
