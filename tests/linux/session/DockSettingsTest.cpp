#include "platform/linux/session/DockSettings.h"

#include "tests/linux/FakePrograms.h"
#include "tests/linux/PrivateBus.h"
#include "tests/linux/SettingsFile.h"

namespace zv {
namespace {

constexpr auto schemas = R"(<schemalist>
<schema id="org.gnome.shell.extensions.dash-to-dock" path="/org/gnome/shell/extensions/dash-to-dock/">
<key name="dock-position" type="s"><default>'BOTTOM'</default></key>
<key name="dock-fixed" type="b"><default>true</default></key>
<key name="autohide" type="b"><default>false</default></key>
</schema>
<schema id="net.launchpad.plank.dock.settings">
<key name="position" type="s"><default>'bottom'</default></key>
<key name="hide-mode" type="s"><default>'intelligent'</default></key>
<key name="zoom-enabled" type="b"><default>false</default></key>
</schema>
<schema id="org.cinnamon" path="/org/cinnamon/">
<key name="panels-enabled" type="as"><default>['1:0:top', '2:1:left']</default></key>
<key name="panels-autohide" type="as"><default>['1:false', '2:true']</default></key>
</schema>
</schemalist>)";

struct DockSettingsTest : testing::Test {
    DockSettingsTest() { access.programs = programs; }
    std::string change(ScriptPurpose purpose)
    {
        auto const outcome = changeDock(purpose, access, store, std::chrono::seconds(10));
        if (outcome.state == ScriptOutcome::State::failed)
            return "failed: " + outcome.errorMessage.value_or("-");
        return outcome.state == ScriptOutcome::State::succeeded ? "done" : "no equivalent";
    }
    std::string stored(std::string const& group, std::string const& key) { return file.stored(group, key); }

    tests::SettingsFile file { schemas };
    SettingsStore& store = file.store;
    std::shared_ptr<tests::FakePrograms> programs = std::make_shared<tests::FakePrograms>();
    DesktopAccess access;
};

using enum ScriptPurpose;

TEST_F(DockSettingsTest, DashToDockMovesAndHides)
{
    access.desktop = Desktop::gnome;
    auto const group = "org/gnome/shell/extensions/dash-to-dock";
    EXPECT_EQ(change(dockLeft), "done");
    EXPECT_EQ(stored(group, "dock-position"), "'LEFT'");
    EXPECT_EQ(change(dockRight), "done");
    EXPECT_EQ(stored(group, "dock-position"), "'RIGHT'");
    EXPECT_EQ(change(dockHiding), "done");
    EXPECT_EQ(stored(group, "dock-fixed") + stored(group, "autohide"), "falsetrue");
    EXPECT_EQ(change(dockHiding), "done");
    EXPECT_EQ(stored(group, "dock-fixed"), "true") << "and back";
    EXPECT_EQ(change(dockMagnification), "no equivalent");
}

TEST_F(DockSettingsTest, PlankIsTheDockWhileItRuns)
{
    access.desktop = Desktop::gnome;
    tests::PrivateBus const bus;
    access.buses.session = bus.address();
    tests::MockService const plank(bus, "net.launchpad.plank", "/plank", "net.launchpad.plank");
    auto const group = "net/launchpad/plank/docks/dock1";
    EXPECT_EQ(change(dockBottom), "done");
    EXPECT_EQ(stored(group, "position"), "'bottom'");
    EXPECT_EQ(change(dockMagnification), "done");
    EXPECT_EQ(stored(group, "zoom-enabled"), "true");
    EXPECT_EQ(change(dockHiding), "done");
    EXPECT_EQ(stored(group, "hide-mode"), "'none'");
    EXPECT_EQ(change(dockHiding), "done");
    EXPECT_EQ(stored(group, "hide-mode"), "'auto'");
}

TEST_F(DockSettingsTest, CinnamonsFirstPanelIsTheDock)
{
    access.desktop = Desktop::cinnamon;
    EXPECT_EQ(change(dockLeft), "done");
    EXPECT_EQ(stored("org/cinnamon", "panels-enabled"), "['1:0:left', '2:1:left']");
    EXPECT_EQ(change(dockHiding), "done");
    EXPECT_EQ(stored("org/cinnamon", "panels-autohide"), "['1:true', '2:true']");
    EXPECT_EQ(change(dockMagnification), "no equivalent");
}

TEST_F(DockSettingsTest, PlasmaRunsAScriptOfItsOwn)
{
    access.desktop = Desktop::kde;
    EXPECT_EQ(change(dockLeft), "no equivalent");
    tests::PrivateBus const bus;
    access.buses.session = bus.address();
    EXPECT_EQ(change(dockLeft), "no equivalent");
    tests::MockService shell(bus, "org.kde.plasmashell", "/PlasmaShell", "org.kde.PlasmaShell");
    shell.method("evaluateScript", "s", "s", "ret = ''");
    EXPECT_EQ(change(dockRight), "done");
    EXPECT_EQ(shell.calls(), std::vector<std::string> { "evaluateScript \"panels()[0].location = 'right'\"" });
    shell.method("evaluateScript", "s", "s", "import dbus; raise dbus.exceptions.DBusException('Widgets are locked', name='org.kde.Failed')");
    EXPECT_EQ(change(dockHiding), "failed: Widgets are locked");
}

TEST_F(DockSettingsTest, ADesktopWithoutADockSaysSo)
{
    store.schemaFolders.clear();
    for (auto const desktop : { Desktop::gnome, Desktop::cinnamon, Desktop::mate, Desktop::other, Desktop::xfce }) {
        access.desktop = desktop;
        for (auto const purpose : { dockMagnification, dockHiding, dockLeft, dockBottom, dockRight })
            EXPECT_EQ(change(purpose), "no equivalent");
    }
    programs->installed = { "xfce4-panel" };
    EXPECT_EQ(change(dockLeft), "done");
    EXPECT_EQ(change(dockMagnification), "no equivalent");
    EXPECT_EQ(programs->started, std::vector<std::string> { "xfce4-panel --preferences" });
}

} // namespace
} // namespace zv
