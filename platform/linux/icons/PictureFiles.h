#pragma once

#include "base/Lifetime.h"
#include "platform/linux/files/MountWatch.h"
#include "platform/time/Tasks.h"
#include "platform/time/Timers.h"

#include <QImage>

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>

namespace zv {

/// Reads a picture of any size, shrunk to as many pixels; null where there is none. Takes long, and may hang. Any thread.
[[nodiscard]] QImage readPicture(std::string const& path, int mostPixels);

/// Reads pictures that anybody may have written. Small ones on this machine's disks are read at
/// once; others on threads of their own, of which there are few, and a picture that takes too long
/// is given up. Main thread only.
class PictureFiles {
public:
    /// Both references outlive this. `onRead` is told of a picture that has come.
    PictureFiles(Tasks& tasks, Timers& timers, std::function<void(std::string const& path)> onRead);

    /// No larger than menus show it; null where there is none, or not yet.
    [[nodiscard]] QImage picture(std::string const& path);
    /// Whether the picture may be read on the main thread: a regular file on a local file system, at most
    /// 1 MB and, by its header, 1,024 pixels each way; and no drawing that names other files or repeats itself.
    [[nodiscard]] bool isQuick(std::string const& path);

private:
    void readElsewhere(std::string const& path);
    void startNext();
    void giveUp(std::string const& path);
    void finish(std::string const& path, QImage picture);

    Tasks& m_tasks;
    Timers& m_timers;
    std::function<void(std::string const& path)> m_onRead;
    MountWatch m_mounts;
    std::unordered_map<std::string, QImage> m_read; ///< null for those that did not come, or are still awaited
    std::deque<std::string> m_waiting;
    struct Reading {
        std::unique_ptr<Timer> patience;
        bool isGivenUp = false;
    };
    std::unordered_map<std::string, Reading> m_readings; ///< each on a thread of its own
    std::size_t m_givenUp = 0; ///< those of them that may never end
    Lifetime m_lifetime;
};

} // namespace zv
