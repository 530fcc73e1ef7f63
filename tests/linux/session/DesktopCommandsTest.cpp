#include "platform/linux/machine/LinuxComputerInfo.h"
#include "platform/linux/posix/OsRelease.h"
#include "platform/linux/session/Desktop.h"
#include "platform/linux/session/LinuxDesktopCommands.h"
#include "tests/linux/FakePrograms.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(Desktop, IsReadFromItsNames)
{
    struct Row {
        char const* text;
        Desktop desktop;
    };
    Row const rows[] = {
        { "ubuntu:GNOME", Desktop::gnome },
        { "XFCE", Desktop::xfce },
        { "xfce", Desktop::xfce },
        { "X-Cinnamon", Desktop::cinnamon },
        { "LXQt:wlroots", Desktop::lxqt },
        { "Budgie:GNOME", Desktop::gnome },
        { "openbox", Desktop::other },
        { ":", Desktop::other },
        { "", Desktop::other },
        { "GNOMEX", Desktop::other },
    };
    for (auto const& row : rows)
        EXPECT_EQ(desktopFromText(row.text), row.desktop) << row.text;
}

TEST(DesktopCommands, EachDesktopOpensItsOwnPrograms)
{
    struct Row {
        SystemPlace place;
        Desktop desktop;
        std::set<std::string> installed;
        std::string started, why;
    };
    using enum SystemPlace;
    std::set<std::string> const all { "gnome-control-center", "systemsettings", "xfce4-settings-manager", "mate-control-center", "cinnamon-settings",
        "lxqt-config", "kinfocenter", "xfce4-panel", "plasma-discover" };
    Row const rows[] = {
        { systemSettings, Desktop::kde, all, "systemsettings", "its own" },
        { systemSettings, Desktop::other, { "lxqt-config" }, "lxqt-config", "what is installed" },
        { systemSettings, Desktop::xfce, { "gnome-control-center" }, "", "another desktop's settings are not this one's" },
        { aboutComputer, Desktop::gnome, all, "", "no panel that is known" },
        { aboutComputer, Desktop::xfce, all, "", "has none" },
        { aboutComputer, Desktop::kde, all, "kinfocenter", "its own" },
        { aboutComputer, Desktop::kde, { "systemsettings" }, "systemsettings kcm_about-distro", "the next best" },
        { dockSettings, Desktop::xfce, all, "xfce4-panel --preferences", "its own" },
        { dockSettings, Desktop::mate, { "plank" }, "plank --preferences", "one for all" },
        { softwareUpdate, Desktop::xfce, { "update-manager", "plasma-discover" }, "update-manager", "one for all" },
        { softwareUpdate, Desktop::xfce, { "synaptic-pkexec" }, "synaptic-pkexec", "at least the software" },
        { softwareStore, Desktop::xfce, {}, "", "nothing there" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.started + ": " + row.why);
        auto const programs = std::make_shared<tests::FakePrograms>();
        programs->installed = row.installed;
        auto const outcome = LinuxDesktopCommands::perform(row.place, { {}, row.desktop, programs, {} }, "/nowhere");
        EXPECT_EQ(outcome, row.started.empty() ? PlaceOutcome::notFound : PlaceOutcome::opened);
        EXPECT_EQ(programs->started, row.started.empty() ? std::vector<std::string> {} : std::vector { row.started });
    }
}

TEST(DesktopCommands, ThePanelAboutTheComputerGoesByItsVersion)
{
    auto const programs = std::make_shared<tests::FakePrograms>();
    programs->installed = { "gnome-control-center" };
    programs->entries = { "gnome-about-panel.desktop" };
    DesktopAccess const access { {}, Desktop::gnome, programs, {} };
    EXPECT_EQ(LinuxDesktopCommands::perform(SystemPlace::aboutComputer, access, ""), PlaceOutcome::opened);
    EXPECT_EQ(programs->started, std::vector<std::string> { "gnome-control-center about" });
}

TEST(DesktopCommands, ATerminalOpensInTheFolder)
{
    std::pair<Desktop, std::set<std::string>> const rows[] = { { Desktop::kde, { "env", "konsole", "xterm" } }, { Desktop::xfce, { "env", "konsole" } } };
    char const* const started[] = { "env --chdir=/a b konsole", "" };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        auto const programs = std::make_shared<tests::FakePrograms>();
        programs->installed = rows[i].second;
        (void)LinuxDesktopCommands::openTerminal(Url::fromPath("/a b"), { {}, rows[i].first, programs, {} });
        EXPECT_EQ(programs->started.empty() ? "" : programs->started.front(), started[i]) << "another desktop's own is not this one's";
    }
}

TEST(DesktopCommands, WithoutAHomePageTheFixedOneIsOpened)
{
    tests::TemporaryFolder const folder;
    DesktopAccess const access { {}, Desktop::other, std::make_shared<tests::FakePrograms>(), {} };
    for (auto const* text : { "", "HOME_URL=\n", "HOME_URL=\"file:///etc/passwd\"\n", "#HOME_URL=https://example.org\n" }) {
        auto const file = folder.write("os-release", text);
        EXPECT_EQ(LinuxDesktopCommands::perform(SystemPlace::operatingSystemPage, access, file), PlaceOutcome::hasFixedTarget) << text;
    }
}

TEST(OsRelease, ReadsAShellsAssignments)
{
    tests::TemporaryFolder const folder;
    auto const values = readOsRelease(folder.write("f", "A=plain\nB=\"two words\"\nC='it'\nD=\"say \\\"hi\\\"\"\n# E=no\nnonsense\nF=\nG=\"\n"));
    std::map<std::string, std::string> const expected { { "A", "plain" }, { "B", "two words" }, { "C", "it" }, { "D", "say \"hi\"" }, { "F", "" },
        { "G", "\"" } };
    EXPECT_EQ(values, expected);
    EXPECT_TRUE(readOsRelease("/nowhere").empty());
}

TEST(PathPrograms, FindsOnlyWhatCanBeRun)
{
    tests::TemporaryFolder const folder;
    auto const add = [&](std::string const& name, int mode) {
        folder.write(name, "#!/bin/sh\nexit $1\n");
        std::filesystem::permissions(folder.path(name), static_cast<std::filesystem::perms>(mode));
    };
    add("bin/tool", 0755);
    add("bin/text", 0644);
    folder.makeFolder("bin/folder");
    folder.write("share/applications/a.desktop", "");
    PathPrograms programs({ { "PATH", "relative::" + folder.path("none") + ":" + folder.path("bin") } }, { folder.path("share/applications") });
    EXPECT_TRUE(programs.has("tool"));
    EXPECT_FALSE(programs.has("text"));
    EXPECT_FALSE(programs.has("folder"));
    EXPECT_FALSE(programs.has("sh")) << "not in this path";
    EXPECT_TRUE(programs.hasEntry("a.desktop"));
    EXPECT_FALSE(programs.hasEntry("b.desktop"));
    EXPECT_TRUE(programs.start({ "tool", "0" }));
    EXPECT_FALSE(programs.start({ "tool", "1" })) << "failed at once";
    EXPECT_FALSE(programs.start({ "text" }));
    EXPECT_FALSE(programs.start({}));
}

TEST(LinuxComputerInfo, ReadsWhatTheMachineSaysOfItself)
{
    tests::TemporaryFolder const root;
    root.write("etc/os-release", "PRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\n");
    root.write("proc/cpuinfo", "processor\t: 0\nmodel name\t: Fast CPU @ 3 GHz\n\nprocessor\t: 1\nmodel name\t: Fast CPU @ 3 GHz\n");
    root.write("proc/meminfo", "MemTotal:       16303000 kB\n");
    root.write("sys/class/dmi/id/sys_vendor", "System manufacturer\n");
    root.write("sys/class/dmi/id/product_name", "Notebook 5\n");
    root.write("sys/class/drm/card0/device/vendor", "0x8086\n");
    root.write("sys/class/drm/card0/device/device", "0x9b41\n");
    root.write("sys/class/drm/card0-eDP-1/status", "connected\n");
    root.write("usr/share/misc/pci.ids", "# comment\n8085  Other\n\t9b41  Wrong\n8086  Intel Corporation\n\t9b40  Near\n\t9b41  CometLake GT2\n");
    auto const facts = LinuxComputerInfo::read(root.path() + "/");
    EXPECT_EQ(facts.system, "Debian GNU/Linux 12 (bookworm)");
    EXPECT_EQ(facts.processor, "Fast CPU @ 3 GHz × 2");
    EXPECT_EQ(facts.memory, "15.5 GB");
    EXPECT_EQ(facts.machine, "Notebook 5");
    EXPECT_EQ(facts.graphics, "Intel Corporation CometLake GT2");
    EXPECT_NE(facts.kernel, "");
}

TEST(LinuxComputerInfo, LeavesOutWhatNobodyKnows)
{
    tests::TemporaryFolder const root;
    auto const facts = LinuxComputerInfo::read(root.path() + "/");
    EXPECT_EQ(facts.system + facts.machine + facts.processor + facts.memory + facts.graphics, "");
}

} // namespace
} // namespace zv
