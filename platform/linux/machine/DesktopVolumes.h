#pragma once

#include "base/Lifetime.h"
#include "platform/linux/files/MountTable.h"
#include "platform/lists/Volumes.h"
#include "platform/time/Tasks.h"
#include "platform/time/Timers.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// Labels by device path, as the device manager names them.
using DeviceLabels = std::map<std::string, std::string>;

/// The mounts that users call volumes: the root, media, disks and shares; not parts of the
/// system, of containers, or of another mount. Reads only the table.
[[nodiscard]] std::vector<Volume> userVolumes(MountTable const& mounts, DeviceLabels const& labels);
/// Whether the mount counts as a volume.
[[nodiscard]] bool isUserVolume(Mount const& mount);
/// Labels from the links of a folder such as /dev/disk/by-label.
[[nodiscard]] DeviceLabels readDeviceLabels(std::string const& folder);

/// Volumes from the kernel's mount table; the desktop's volume monitor adds names, and shares
/// that are mounted without a path.
class DesktopVolumes : public Volumes {
public:
    /// Connects to the desktop's volume monitor in the background. Lists wait half a second for
    /// it at most; until it answers the mount table alone counts. Both services outlive this.
    DesktopVolumes(Tasks& tasks, Timers& timers);
    ~DesktopVolumes() override;

    void list(std::function<void(std::vector<Volume>)> done) override;

private:
    struct Monitor;
    using Done = std::function<void(std::vector<Volume>)>;

    void connected(std::shared_ptr<Monitor> monitor);
    void stopWaiting();
    [[nodiscard]] std::vector<Volume> current() const;

    std::shared_ptr<Monitor> m_monitor;
    std::unique_ptr<Timer> m_patience; ///< exists while waiting for the monitor
    std::vector<Done> m_waiting;
    Lifetime m_lifetime;
};

} // namespace zv
