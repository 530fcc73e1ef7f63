#include "platform/macos/desk/SystemIconNames.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(MacSystemIcons, AreThoseOfTheSystemsOwnApplications)
{
    struct Row {
        SystemIcon icon;
        char const* name;
    };
    Row const rows[] = {
        { SystemIcon::dock, "/System/Library/CoreServices/Dock.app" },
        { SystemIcon::shortcuts, "/System/Applications/Shortcuts.app" },
        { SystemIcon::appStore, "/System/Applications/App Store.app" },
        { SystemIcon::softwareUpdate, "/System/Library/ExtensionKit/Extensions/SoftwareUpdateSettingsExtension.appex" },
        { SystemIcon::systemSettings, "/System/Applications/System Settings.app" },
        { SystemIcon::networkLocation, "/System/Library/ExtensionKit/Extensions/Network.appex" },
        { SystemIcon::computer, "computer" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(nameOfSystemIcon(row.icon), row.name);
}

} // namespace
} // namespace zv
