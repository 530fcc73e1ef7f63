#pragma once

#include "platform/linux/posix/FileDescriptor.h"

#include <string>

namespace zv {

/// Signals through a readable descriptor that a file may have been replaced, written or deleted.
/// Watches the folder, as files are replaced by renaming.
class FileWatch {
public:
    /// The folder must exist, or nothing is watched.
    explicit FileWatch(std::string const& path);

    /// -1 when the system has no watches left.
    [[nodiscard]] int descriptor() const { return m_inotify.get(); }
    /// Takes the arrived events; true when any was about the file.
    bool takeEvents();

private:
    std::string m_name;
    FileDescriptor m_inotify;
};

} // namespace zv
