#include "platform/linux/session/DesktopAccess.h"

#include "platform/linux/posix/XdgDirectories.h"

namespace zv {

DesktopAccess DesktopAccess::of(Environment const& environment)
{
    return { BusAddresses::of(environment), desktopFromText(valueOf(environment, "XDG_CURRENT_DESKTOP")),
        std::make_shared<PathPrograms>(environment, XdgDirectories::of(environment).applicationFolders()), valueOf(environment, "XDG_SESSION_ID"),
        environment.contains("WAYLAND_DISPLAY") || valueOf(environment, "XDG_SESSION_TYPE") == "wayland" };
}

} // namespace zv
