#pragma once

#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/session/Desktop.h"
#include "platform/linux/session/Programs.h"

#include <memory>
#include <string>

namespace zv {

/// What the services of the desktop and of the machine are reached by. All of it is handed
/// in, so that a test's session can never be the machine's.
struct DesktopAccess {
    BusAddresses buses;
    Desktop desktop = Desktop::other;
    std::shared_ptr<Programs> programs;
    std::string sessionId; ///< of the login service; empty lets that find it out

    [[nodiscard]] static DesktopAccess of(Environment const& environment);
};

} // namespace zv
