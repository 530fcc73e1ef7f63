#include "app/settings/PermissionRows.h"

#include "app/actions/SystemPlaces.h"
#include "app/doctor/PermissionText.h"
#include "base/Translation.h"

#include <string>

namespace zv {

namespace {

struct Described {
    Permission permission;
    char const* id;
    Sentence button;
    std::string_view pane;
};

constexpr Described all[] = {
    { Permission::automation, "automation", mark("Open Automation Settings"), automationPane },
    { Permission::accessibility, "accessibility", mark("Open Accessibility Settings"), accessibilityPane },
};

SettingsRow stateRow(Described const& described, PermissionState state)
{
    auto const text = permissionText(described.permission, state);
    SettingsRow row;
    row.id = described.id;
    // TRANSLATORS: a permission's name, and whether it is given
    row.title = inSequence(tr("%1: %2.", text.name, text.state), text.reason);
    return row;
}

SettingsRow paneRow(Described const& described, std::function<void(std::string_view)> const& openPane)
{
    SettingsRow row;
    row.kind = SettingsRow::Kind::button;
    row.id = std::string(described.id) + "Settings";
    row.title = tr(described.button);
    row.press = [openPane, pane = described.pane] { openPane(pane); };
    return row;
}

} // namespace

SettingsSection permissionSection(Permissions const& permissions, std::function<void(std::string_view)> const& openPane)
{
    SettingsSection section { tr("Permissions"), {} };
    for (auto const& described : all) {
        section.rows.push_back(stateRow(described, permissions.state(described.permission)));
        section.rows.push_back(paneRow(described, openPane));
    }
    return section;
}

} // namespace zv
