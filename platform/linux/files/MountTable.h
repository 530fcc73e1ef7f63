#pragma once

#include "platform/linux/posix/Paths.h"

#include <set>
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
    std::string device {}; ///< the kernel's numbers for it, such as "8:1"
    bool mayHang = false; ///< by its type, or because it was slow to answer
};

/// The mounts in the kernel's own table (proc_pid_mountinfo(5)): reading it touches no file system. Any thread.
class MountTable {
public:
    /// The text of /proc/self/mountinfo. Malformed lines are skipped. `slowDevices` count as those that may hang.
    explicit MountTable(std::string_view mountInfo, std::set<std::string> const& slowDevices = {});
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
    /// Follows the path's links step by step, never onto a file system that may hang: there the
    /// search ends with `remote`.
    [[nodiscard]] Fate follow(std::string_view path) const { return followFrom("/", path); }
    /// The same for a path below `place`, where an earlier search ended.
    [[nodiscard]] Fate followFrom(std::string place, std::string_view path) const;

private:
    std::vector<Mount> m_mounts;
};

/// Whether another machine or a user program serves the type, so that it is shown as a server.
[[nodiscard]] bool isRemoteFileSystem(std::string_view type);
/// Whether access may hang: true for every type that the kernel is not known to answer by itself.
[[nodiscard]] bool mayHang(std::string_view type);

} // namespace zv
