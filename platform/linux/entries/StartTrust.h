#pragma once

#include <string>
#include <sys/types.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace zv {

struct TrustedUsers {
    uid_t system = 0;
    uid_t self = ::geteuid();
};

/// Decides which files may start something without a question: those that were installed, and those
/// that their user made executable. Follows links, so it is not asked about remote files on the main
/// thread. Any thread.
class StartTrust {
public:
    explicit StartTrust(std::vector<std::string> applicationFolders = {}, TrustedUsers users = {})
        : m_folders(std::move(applicationFolders))
        , m_users(users)
    {
    }

    /// Whether the file belongs to the system, or is a regular one of the user's own with its executable
    /// bit set, or it or a link on the way to it lies in an application folder.
    [[nodiscard]] bool trusts(std::string const& path) const;
    /// Whether the executable bit is all that the file lacks.
    [[nodiscard]] bool canBeTrusted(std::string const& path) const;

private:
    [[nodiscard]] bool isInstalled(std::string const& path) const;

    std::vector<std::string> m_folders;
    TrustedUsers m_users;
};

/// Whether the file system keeps the executable bit of each file; where it does not, a set bit says nothing.
[[nodiscard]] bool keepsExecutableBits(long fileSystemType);

} // namespace zv
