#include "app/doctor/PermissionText.h"

namespace zv {

namespace {

char const* textOf(PermissionState state)
{
    switch (state) {
    case PermissionState::granted:
        return "allowed";
    case PermissionState::refused:
        return "not allowed";
    case PermissionState::notKnown:
        return "Not known while System Events is not running";
    case PermissionState::notAsked:
        break;
    }
    return "not in use yet; macOS asks at the first such command";
}

} // namespace

PermissionText permissionText(Permission permission, PermissionState state)
{
    if (permission == Permission::automation)
        return { "Automation", textOf(state), "System Events and the login window carry out Sleep, Restart, Shut Down, Log Out and the Dock commands." };
    return { "Accessibility", textOf(state), "Lock Screen and Force Quit press the system’s own key combinations, which needs Automation as well." };
}

} // namespace zv
