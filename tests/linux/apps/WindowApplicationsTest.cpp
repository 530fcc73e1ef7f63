#include "platform/linux/apps/WindowApplications.h"

#include "tests/linux/TemporaryFolder.h"

#include <unistd.h>

namespace zv {
namespace {

using tests::TemporaryFolder;

struct WindowApplicationsTest : testing::Test {
    WindowApplicationsTest()
    {
        add("org.gnome.Nautilus", "Files", "nautilus --new-window");
        add("xterm", "XTerm", "/usr/bin/xterm", "StartupWMClass=UXTerm\n");
        add("background", "Helper", "helper", "NoDisplay=true\n");
        add("org.zanthevell.ZantheVell", "Zanthe Vell", "zanthe-vell");
        index = ApplicationIndex::read({ disk.path() });
    }
    void add(std::string const& id, std::string const& name, std::string const& exec, std::string const& more = {}) const
    {
        disk.write(id + ".desktop", "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + exec + "\n" + more);
    }

    TemporaryFolder disk;
    ApplicationIndex index;
};

TEST_F(WindowApplicationsTest, KnowTheApplicationByWhicheverTraceTheWindowHas)
{
    struct Row {
        ClientWindow window;
        std::string id, name, why;
    };
    Row const rows[] = {
        { { 1, "X", "y", "org.gnome.Nautilus", "title" }, "org.gnome.Nautilus.desktop", "Files", "the toolkit's id comes first" },
        { { 1, "UXTerm", "xterm" }, "xterm.desktop", "XTerm", "StartupWMClass" },
        { { 1, "nautilus", "" }, "org.gnome.Nautilus.desktop", "Files", "the short id" },
        { { 1, "Odd", "xterm" }, "xterm.desktop", "XTerm", "the instance" },
        { { 1, "Odd", "odd", "", "", 7, "/usr/lib/nautilus" }, "org.gnome.Nautilus.desktop", "Files", "the program" },
        { { 1, "Odd", "odd", "", "Title" }, "class:Odd", "Odd", "no entry: the class" },
        { { 5, "", "", "", "Title" }, "window:5", "Title", "no class: the title" },
        { { 1, "", "odd", "", "Title" }, "class:odd", "odd", "half a class" },
        { { 5, "", "", "", "", 7, "/opt/tool" }, "window:5", "tool", "no title: the program" },
        { { 5 }, "window:5", "5", "nothing at all" },
        { { 5, "", "", "", "bad \xFF title" }, "window:5", "bad \xEF\xBF\xBD title", "not UTF-8" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        auto const application = applicationOf(row.window, index);
        EXPECT_EQ(application.id, row.id);
        EXPECT_EQ(application.name, row.name);
    }
    EXPECT_EQ(applicationOf({ 5, "", "", "", "", 7, "/opt/tool" }, index).url->path(), "/opt/tool");
    EXPECT_FALSE(applicationOf({ 5 }, index).url);
}

TEST_F(WindowApplicationsTest, ReadTheApplicationFromAUnitsName)
{
    struct Row {
        std::string unit;
        std::optional<std::string> id;
    };
    Row const rows[] = {
        { "app-gnome-org.gnome.Nautilus-1234.scope", "org.gnome.Nautilus" },
        { "app-xterm-5.scope", "xterm" },
        { "app-gnome-firefox\\x2desr-1234.scope", "firefox-esr" },
        { "app-org.kde.kate@0a1b.service", "org.kde.kate" },
        { "app-flatpak-org.mozilla.firefox@1.service", "org.mozilla.firefox" },
        { "app-plain.service", "plain" },
        { "dbus.service", std::nullopt },
        { "app-x.slice", std::nullopt },
        { "app-.service", std::nullopt },
        { "app-bad\\xzz-1.scope", "bad\\xzz" },
        { "app-\\x", std::nullopt },
        { "", std::nullopt },
    };
    for (auto const& row : rows)
        EXPECT_EQ(applicationIdOfUnit(row.unit), row.id) << row.unit;
}

TEST_F(WindowApplicationsTest, CountOnlyUnitsOfOtherApplicationsThatAMenuShows)
{
    auto const applications = applicationsOfUnits(
        { "app-gnome-org.gnome.Nautilus-1.scope", "app-background-2.scope", "app-unknown-3.scope", "app-org.zanthevell.ZantheVell@autostart.service" }, index);
    ASSERT_EQ(applications.size(), 1u);
    EXPECT_EQ(applications[0].name, "Files");
}

TEST(ProgramOfProcess, IsKnownForProcessesThatAreThere)
{
    EXPECT_TRUE(programOfProcess(static_cast<std::uint32_t>(getpid())).ends_with("/zv_linux_tests"));
    EXPECT_EQ(programOfProcess(0), "");
    EXPECT_EQ(programOfProcess(4'000'000'000U), "");
}

} // namespace
} // namespace zv
