#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv {

struct Mount {
    std::string path;
    std::string type; ///< "ext4", "nfs4", "fuse.sshfs" …
    std::string source; ///< "/dev/sda1", "nas:/export"; anything for others
    std::string root; ///< what of the file system is mounted; "/" unless it is a part
    bool isReadOnly = false;
};

/// What is mounted, from the kernel's own table (proc_pid_mountinfo(5)): reading it touches no file system. Any thread.
class MountTable {
public:
    /// The text of /proc/self/mountinfo. Lines that make no sense are skipped.
    explicit MountTable(std::string_view mountInfo);
    [[nodiscard]] static MountTable current();

    /// In the order they were mounted; a later one hides an earlier one with the same path.
    [[nodiscard]] std::vector<Mount> const& mounts() const { return m_mounts; }
    /// The mount that the path lies on, links not followed; null when there is none.
    [[nodiscard]] Mount const* mountOf(std::string_view path) const;

    struct Fate {
        enum class Kind { found, missing, remote };
        Kind kind = Kind::missing;
        bool isDirectory = false;
        std::string path {}; ///< where the search ended; free of links when found
        bool isLink = false; ///< the path itself is a link, wherever it leads
    };
    /// Where the path leads, links followed step by step, never onto a remote file system:
    /// there the search ends with `remote`.
    [[nodiscard]] Fate follow(std::string_view path) const;

private:
    std::vector<Mount> m_mounts;
};

[[nodiscard]] bool isAtOrBelow(std::string_view path, std::string_view folder);
/// Another machine, or a program of the user's, answers for it: it may hang.
[[nodiscard]] bool isRemoteFileSystem(std::string_view type);

} // namespace zv
