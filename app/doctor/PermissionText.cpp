#include "app/doctor/PermissionText.h"

#include "base/Translation.h"

namespace zv {

namespace {

struct StateText {
    std::string word;
    std::string sentence;
};

StateText textOf(PermissionState state)
{
    switch (state) {
    case PermissionState::granted:
        return { trc("permission", "allowed"), tr("It is allowed.") };
    case PermissionState::refused:
        return { trc("permission", "not allowed"), tr("It is not allowed.") };
    case PermissionState::notKnown:
        return { trc("permission", "Not known while System Events is not running"), tr("Not known while System Events is not running.") };
    case PermissionState::notAsked:
        break;
    }
    return { trc("permission", "not in use yet; macOS asks at the first such command"), tr("It is not in use yet; macOS asks at the first such command.") };
}

} // namespace

PermissionText permissionText(Permission permission, PermissionState state)
{
    auto const [word, sentence] = textOf(state);
    if (permission == Permission::automation)
        // TRANSLATORS: as System Settings, Privacy & Security, names it
        return { tr("Automation"), word, sentence,
            tr("System Events and the login window carry out Sleep, Restart, Shut Down, Log Out and the Dock commands.") };
    // TRANSLATORS: as System Settings, Privacy & Security, names it
    return { tr("Accessibility"), word, sentence, tr("Lock Screen and Force Quit press the system’s own key combinations, which needs Automation as well.") };
}

} // namespace zv
