#pragma once

#include "base/Result.h"
#include "base/Url.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The reason why a file that is there cannot be opened.
enum class FileFault : std::uint8_t {
    none,
    leadsNowhere, ///< a link or alias without a target, or whose volume has gone
    programMissing, ///< an application entry that names a program (TryExec) which is not installed
};

/// The kind of a file, links and aliases followed to their end.
struct FileTraits {
    bool isDirectory = false;
    bool isPackage = false; ///< shown as one thing though it may be a folder: an application, a bundle
    FileFault fault = FileFault::none;
};

/// Files by URL. Nothing here shows anything to the user or mounts anything.
/// Failures are the system's own sentence for them. Any thread.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// True when a file exists; links are followed, so a broken link does not.
    [[nodiscard]] virtual bool exists(Url const& url) const = 0;
    /// True when the name is in use, if only by a broken link.
    [[nodiscard]] virtual bool isTaken(Url const& url) const = 0;
    /// The file's kind; nothing without a file. A broken or looping link is a plain file.
    [[nodiscard]] virtual std::optional<FileTraits> traits(Url const& url) const = 0;
    /// The path with every symbolic link resolved; itself where that fails.
    [[nodiscard]] virtual Url resolvingSymlinks(Url const& url) const = 0;
    /// The name that a file manager shows; valid UTF-8.
    [[nodiscard]] virtual std::string localizedName(Url const& url) const = 0;
    /// The name of the volume when the URL is a volume's root.
    [[nodiscard]] virtual std::optional<std::string> volumeName(Url const& url) const = 0;
    [[nodiscard]] virtual bool isOnReadOnlyVolume(Url const& url) const = 0;

    /// Makes missing parents too; an existing folder is fine.
    [[nodiscard]] virtual Result<void> createDirectory(Url const& url) = 0;
    [[nodiscard]] virtual bool isWritableDirectory(Url const& url) const = 0;
    [[nodiscard]] virtual Result<std::vector<std::byte>> read(Url const& url) const = 0;
    /// Writes whole or not at all: a temporary file in the same folder, synced, then renamed.
    [[nodiscard]] virtual Result<void> write(Url const& url, std::vector<std::byte> const& bytes) = 0;
    /// Writes like write(), for the user's eyes alone: readable by nobody else, in a folder that nobody else can
    /// enter and that is made where it is missing.
    [[nodiscard]] virtual Result<void> writePrivately(Url const& url, std::vector<std::byte> const& bytes) = 0;
    /// Lets the file's owner start it, as people do in a file manager.
    [[nodiscard]] virtual Result<void> makeStartable(Url const& url) = 0;
    /// Names in the folder, in no order, "." and ".." left out.
    [[nodiscard]] virtual Result<std::vector<std::string>> names(Url const& folder) const = 0;
    [[nodiscard]] virtual Result<void> remove(Url const& url) = 0;
    /// Renames a file within its folder; never replaces another.
    [[nodiscard]] virtual Result<void> rename(Url const& from, Url const& to) = 0;
};

} // namespace zv
