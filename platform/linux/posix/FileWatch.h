#pragma once

#include "platform/linux/posix/FileDescriptor.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>

struct inotify_event;

namespace zv {

/// Signals through a readable descriptor that a file may have been replaced, written or deleted.
/// Watches the folders on the way to it, both as named and after links, as any of them may be
/// exchanged for another one.
class FileWatch {
public:
    explicit FileWatch(std::string path);

    /// -1 when the system has no watches left.
    [[nodiscard]] int descriptor() const { return m_inotify.get(); }
    /// Takes the arrived events; true when any was about the file, or a folder on the way.
    bool takeEvents();

private:
    bool readEvents();
    void watchTheWay();
    void watchTheWayTo(std::string path);
    bool watch(std::string const& folder, std::uint32_t events, std::string const& path, std::string name);
    [[nodiscard]] bool concernsFile(inotify_event const& event) const;

    std::string m_path;
    FileDescriptor m_inotify;
    std::map<std::pair<int, std::string>, std::string> m_way; ///< paths by the watch on their folder, and their name
};

} // namespace zv
