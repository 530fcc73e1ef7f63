#include "app/settings/PermissionRows.h"

#include "app/actions/SystemPlaces.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace zv {

namespace {

struct Described {
    Permission permission;
    char const* id;
    char const* name;
    char const* reason;
    char const* button;
    std::string_view pane;
};

constexpr Described all[] = {
    { Permission::automation, "automation", "Automation",
        "System Events and the login window carry out Sleep, Restart, Shut Down, Log Out and the Dock commands.", "Open Automation Settings", automationPane },
    { Permission::accessibility, "accessibility", "Accessibility",
        "Lock Screen and Force Quit press the system’s own key combinations, which needs Automation as well.", "Open Accessibility Settings",
        accessibilityPane },
};

char const* textOf(PermissionState state)
{
    switch (state) {
    case PermissionState::granted:
        return "allowed";
    case PermissionState::refused:
        return "not allowed";
    case PermissionState::notAsked:
        break;
    }
    return "not in use yet; macOS asks at the first such command";
}

SettingsRow stateRow(Described const& described, PermissionState state)
{
    SettingsRow row;
    row.id = described.id;
    row.title = std::string(described.name) + ": " + textOf(state) + ". " + described.reason;
    return row;
}

SettingsRow paneRow(Described const& described, std::function<void(std::string_view)> const& openPane)
{
    SettingsRow row;
    row.kind = SettingsRow::Kind::button;
    row.id = std::string(described.id) + "Settings";
    row.title = described.button;
    row.press = [openPane, pane = described.pane] { openPane(pane); };
    return row;
}

} // namespace

PermissionText permissionText(Permission permission, PermissionState state)
{
    auto const* const described = std::find_if(std::begin(all), std::end(all), [&](Described const& each) { return each.permission == permission; });
    return { described->name, textOf(state), described->reason };
}

SettingsSection permissionSection(Permissions const& permissions, std::function<void(std::string_view)> const& openPane)
{
    SettingsSection section { "Permissions", {} };
    for (auto const& described : all) {
        section.rows.push_back(stateRow(described, permissions.state(described.permission)));
        section.rows.push_back(paneRow(described, openPane));
    }
    return section;
}

} // namespace zv
