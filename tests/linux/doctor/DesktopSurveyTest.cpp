#include "platform/linux/doctor/DesktopSurvey.h"
#include "tests/linux/FakePrograms.h"
#include "tests/linux/PrivateBus.h"
#include "tests/linux/TemporaryFolder.h"

namespace zv {
namespace {

using Found = DesktopFindings;
using tests::FakePrograms;
using tests::MockService;
using tests::PrivateBus;

struct DesktopSurveyTest : testing::Test {
    DesktopSurveyTest()
    {
        access.programs = programs;
        access.desktop = Desktop::xfce;
        directories.config = folder.path("config");
    }
    Found look()
    {
        Found found;
        surveyServices(access, directories, {}, found);
        return found;
    }

    std::shared_ptr<FakePrograms> programs = std::make_shared<FakePrograms>();
    tests::TemporaryFolder folder;
    XdgDirectories directories;
    DesktopAccess access;
};

TEST_F(DesktopSurveyTest, WithoutAnyBusEverythingOnOneIsMissing)
{
    auto const found = look();
    EXPECT_FALSE(found.hasSessionBus || found.hasPortal || found.hasNotifications || found.hasLoginService || found.hasAuthorization);
    EXPECT_EQ(found.statusIcons, Found::StatusIcons::noWatcher);
    EXPECT_EQ(found.screenLock, Found::ScreenLock::none);
    EXPECT_EQ(found.openAtLogin, LoginService::Status::notRegistered);
}

TEST_F(DesktopSurveyTest, AsksWhoIsOnTheSessionBus)
{
    PrivateBus const bus;
    access.buses.session = bus.address();
    EXPECT_TRUE(look().hasSessionBus);
    EXPECT_EQ(look().statusIcons, Found::StatusIcons::noWatcher);
    MockService watcher(bus, "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher");
    EXPECT_EQ(look().statusIcons, Found::StatusIcons::shown) << "one that does not tell of its hosts";
    MockService const files(bus, "org.freedesktop.FileManager1", "/", "org.freedesktop.FileManager1");
    MockService const notifications(bus, "org.freedesktop.Notifications", "/", "org.freedesktop.Notifications");
    MockService const saver(bus, "org.xfce.ScreenSaver", "/", "org.xfce.ScreenSaver");
    auto const found = look();
    EXPECT_EQ(found.fileManager, Found::FileManager::reveals);
    EXPECT_TRUE(found.hasNotifications);
    EXPECT_FALSE(found.hasPortal);
    EXPECT_EQ(found.screenLock, Found::ScreenLock::saver);
}

TEST_F(DesktopSurveyTest, AsksTheLoginServiceWhatItAllows)
{
    PrivateBus const bus;
    access.buses.system = bus.address();
    MockService login(bus, "org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager");
    login.method("CanSuspend", "", "s", "ret = 'na'");
    login.method("CanReboot", "", "s", "ret = 'challenge'");
    login.method("CanPowerOff", "", "s", "ret = 'yes'");
    auto const found = look();
    EXPECT_TRUE(found.hasLoginService);
    EXPECT_EQ(found.sleep, Found::Allowed::no);
    EXPECT_EQ(found.restart, Found::Allowed::afterPassword);
    EXPECT_EQ(found.shutDown, Found::Allowed::yes);
    EXPECT_EQ(found.screenLock, Found::ScreenLock::loginService);
    EXPECT_EQ(login.calls(), (std::vector<std::string> { "CanSuspend", "CanReboot", "CanPowerOff" })) << "it only asks";
}

TEST_F(DesktopSurveyTest, KnowsTheProgramsOfThisDesktop)
{
    programs->installed = { "gnome-system-monitor", "gnome-control-center", "gnome-software", "xkill" };
    EXPECT_EQ(look().forceQuit, Found::ForceQuit::clickOnWindow) << "another desktop's task manager is not started here";
    auto const places = look().placesWithoutProgram;
    EXPECT_TRUE(std::ranges::count(places, SystemPlace::systemSettings)) << "nor its settings";
    EXPECT_FALSE(std::ranges::count(places, SystemPlace::softwareUpdate)) << "which have a row for every desktop";
    programs->installed = { "xfce4-taskmanager", "xfce4-settings-manager" };
    EXPECT_EQ(look().forceQuit, Found::ForceQuit::taskManager);
    EXPECT_FALSE(std::ranges::count(look().placesWithoutProgram, SystemPlace::systemSettings));
    EXPECT_TRUE(programs->started.empty()) << "nothing is started";
}

TEST_F(DesktopSurveyTest, SeesAnAutostartEntryThatWasSwitchedOff)
{
    folder.write("config/autostart/org.zanthevell.ZantheVell.desktop", "[Desktop Entry]\nType=Application\nExec=zanthe-vell\nHidden=true\n");
    EXPECT_EQ(look().openAtLogin, LoginService::Status::requiresApproval);
}

} // namespace
} // namespace zv
