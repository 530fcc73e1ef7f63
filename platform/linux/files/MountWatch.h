#pragma once

#include "platform/linux/files/MountTable.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace zv {

/// The mount table, at most some milliseconds old, read again only after the kernel reports a
/// change. Any thread.
class MountWatch {
public:
    struct Snapshot {
        MountTable table;
        bool hasRemote; ///< some mount may hang; without one no path needs checking
        std::size_t slowCount; ///< how many devices were known to be slow
    };

    static constexpr char const* systemTable = "/proc/self/mountinfo";

    explicit MountWatch(std::string mountInfoPath = systemTable);

    [[nodiscard]] std::shared_ptr<Snapshot const> current();
    /// Whether the path, links followed, leads onto a file system that may hang. Does not access that.
    [[nodiscard]] bool isRemote(std::string_view path);
    /// Notes how long a file system took to answer: after a second it counts as one that may hang, for every
    /// watch, as long as this program runs. The root's never does: without it nothing works.
    void noteAnswer(dev_t device, std::chrono::steady_clock::duration took);

private:
    [[nodiscard]] bool hasChanged();

    std::string m_path;
    FileDescriptor m_file; ///< only polled: the kernel marks it at each mount and unmount
    std::atomic<std::int64_t> m_askedAt { -1 }; ///< the clock tick of the last poll
    std::atomic<std::shared_ptr<Snapshot const>> m_snapshot;
};

} // namespace zv
