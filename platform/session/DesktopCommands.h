#pragma once

#include "base/Url.h"

#include <cstdint>
#include <functional>

namespace zv {

/// A place of the system that a command opens.
enum class SystemPlace : std::uint8_t { aboutComputer, softwareStore, operatingSystemPage, softwareUpdate, systemSettings, dockSettings };

enum class PlaceOutcome : std::uint8_t {
    opened,
    hasFixedTarget, ///< the same address on every such system: the caller opens it
    notFound, ///< no program here provides it
};

/// Opens the system's places in the desktop's own way. Main thread only.
class DesktopCommands {
public:
    virtual ~DesktopCommands() = default;
    /// Calls `done` once, on the main thread: before it returns, or later.
    virtual void open(SystemPlace place, std::function<void(PlaceOutcome)> done) = 0;
    /// Opens a terminal's window in the folder; calls `done` likewise.
    virtual void openTerminal(Url const& folder, std::function<void(PlaceOutcome)> done) = 0;
};

} // namespace zv
