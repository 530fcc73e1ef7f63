#pragma once

#include "platform/linux/files/MountTable.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zv {

/// The mount table as it stood some milliseconds ago at most, read again only after the kernel
/// says that it changed. Any thread.
class MountWatch {
public:
    struct Snapshot {
        MountTable table;
        bool hasRemote; ///< some mount is remote; without one no path needs to be looked at
    };

    static constexpr char const* systemTable = "/proc/self/mountinfo";

    explicit MountWatch(std::string mountInfoPath = systemTable);

    [[nodiscard]] std::shared_ptr<Snapshot const> current();
    /// The path leads, links followed, onto a remote file system; found out without touching that.
    [[nodiscard]] bool isRemote(std::string_view path);

private:
    [[nodiscard]] bool hasChanged();

    std::string m_path;
    FileDescriptor m_file; ///< polled only: the kernel marks it when something is mounted or unmounted
    std::atomic<std::int64_t> m_askedAt { -1 }; ///< the tick of the clock in which the kernel was asked last
    std::atomic<std::shared_ptr<Snapshot const>> m_snapshot;
};

} // namespace zv
