#pragma once

#include "platform/linux/posix/Paths.h"

#include <string>
#include <string_view>
#include <vector>

namespace zv {

struct Mount {
    std::string path;
    std::string type; ///< "ext4", "nfs4", "fuse.sshfs" …
    std::string source; ///< "/dev/sda1", "nas:/export"; free text for other types
    std::string root; ///< the mounted part of the file system; "/" for the whole
    bool isReadOnly = false;
};

/// The mounts in the kernel's own table (proc_pid_mountinfo(5)): reading it touches no file system. Any thread.
class MountTable {
public:
    /// The text of /proc/self/mountinfo. Malformed lines are skipped.
    explicit MountTable(std::string_view mountInfo);
    [[nodiscard]] static MountTable current();

    /// Mounts in the order they were made; a later one hides an earlier one with the same path.
    [[nodiscard]] std::vector<Mount> const& mounts() const { return m_mounts; }
    /// The mount that holds the path, links not followed; null when there is none.
    [[nodiscard]] Mount const* mountOf(std::string_view path) const;

    struct Fate {
        enum class Kind { found, missing, remote };
        Kind kind = Kind::missing;
        bool isDirectory = false;
        std::string path {}; ///< the place where the search ended; free of links when found
        bool isLink = false; ///< the path itself is a link, wherever it leads
    };
    /// Follows the path's links step by step, never onto a remote file system: there the search
    /// ends with `remote`.
    [[nodiscard]] Fate follow(std::string_view path) const;

private:
    std::vector<Mount> m_mounts;
};

/// Whether another machine or a user program serves the type: access may hang.
[[nodiscard]] bool isRemoteFileSystem(std::string_view type);

} // namespace zv
