#pragma once

#include "platform/linux/apps/WindowApplications.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace zv {

/// The windows of all programs, as a window manager or compositor tells them. Main thread only,
/// callbacks too.
class ClientWindows {
public:
    /// The ordinary windows of other programs, the topmost, or the one used last, at the end;
    /// nothing when they are not told.
    using List = std::optional<std::vector<ClientWindow>>;

    virtual ~ClientWindows() = default;
    /// Calls `done` once: before it returns, or later.
    virtual void withList(std::function<void(List)> done) = 0;
    /// Brings the window to the front, wherever it is.
    virtual void activate(std::uint32_t window) = 0;
    /// Asks the window's program to close it.
    virtual void close(std::uint32_t window) = 0;
};

} // namespace zv
