#pragma once

#include "platform/linux/posix/FileDescriptor.h"

#include <string>

namespace zv {

/// Tells when a file may have been replaced, written or deleted, through a descriptor that
/// becomes readable. Watches the folder, as files are replaced by renaming.
class FileWatch {
public:
    /// The folder must exist, else nothing is watched.
    explicit FileWatch(std::string const& path);

    /// -1 when the system has no watches left.
    [[nodiscard]] int descriptor() const { return m_inotify.get(); }
    /// Takes what has come; true when any of it was about the file.
    bool takeEvents();

private:
    std::string m_name;
    FileDescriptor m_inotify;
};

} // namespace zv
