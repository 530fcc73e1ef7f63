#pragma once

#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/session/Desktop.h"
#include "platform/linux/session/Programs.h"

#include <memory>
#include <string>

namespace zv {

/// The connections to the desktop's and the machine's services. All are passed in, so that a
/// test's session can never be the machine's.
struct DesktopAccess {
    BusAddresses buses;
    Desktop desktop = Desktop::other;
    std::shared_ptr<Programs> programs;
    std::string sessionId; ///< id at the login service, which finds it out when empty
    bool hasForeignWindows = false; ///< windows that are not the X server's, so that its tools miss them

    [[nodiscard]] static DesktopAccess of(Environment const& environment);
};

} // namespace zv
