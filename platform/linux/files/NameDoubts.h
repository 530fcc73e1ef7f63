#pragma once

#include "platform/files/FolderReader.h"
#include "platform/linux/entries/StartTrust.h"
#include "platform/linux/files/MountTable.h"

#include <optional>
#include <string>
#include <sys/types.h>
#include <unistd.h>
#include <vector>

namespace zv {

/// Decides whether a file's name may claim a combination. Touches no remote file system. Any thread.
struct NameDoubts {
    std::string itemsFolder {}; ///< what the user put here is meant, wherever it was downloaded from
    std::vector<std::string> downloadFolders {};
    StartTrust trust {};
    uid_t user = ::geteuid();

    [[nodiscard]] std::optional<NameDoubt> about(std::string const& path, MountTable const& mounts) const;
};

/// Whether the medium may be pulled out: by where it is mounted, else by what the kernel says of its device.
[[nodiscard]] bool isRemovable(Mount const& mount);

} // namespace zv
