#include "platform/linux/x11/DesktopRunningApplications.h"

#include "tests/fakes/FakeTime.h"
#include "tests/linux/PrivateBus.h"
#include "tests/linux/toolkit/TestApplication.h"

namespace zv {
namespace {

using tests::MockService;
using tests::PrivateBus;

/// A desktop without X11: only the user's service manager knows the running applications.
struct UserUnitsTest : testing::Test {
    UserUnitsTest()
    {
        ensureApplication();
        disk.write("org.example.Editor.desktop", "[Desktop Entry]\nType=Application\nName=Editor\nExec=editor\nDBusActivatable=true\n");
        disk.write("plain.desktop", "[Desktop Entry]\nType=Application\nName=Plain\nExec=plain\n");
    }
    ~UserUnitsTest() override { QDBusConnection::disconnectFromBus(QStringLiteral("units")); }

    /// The titles, or "?" when none are known.
    std::string list()
    {
        std::optional<std::string> names;
        applications.list([&](RunningApplications::List const& found) {
            names = found ? "" : "?";
            for (auto const& application : found.value_or(std::vector<RunningApplication> {}))
                *names += application.name + ";";
        });
        time.runTasks();
        tests::turnUntil([&] { return names.has_value(); });
        return names.value_or("no answer");
    }

    PrivateBus bus;
    tests::TemporaryFolder disk;
    fakes::FakeTime time;
    ApplicationCatalog catalog { time, { disk.path() }, {} };
    std::vector<std::string> launched;
    DesktopRunningApplications applications { { catalog, [this](Url const& url) { launched.push_back(url.lastPathComponent()); },
                                                  QDBusConnection::connectToBus(QString::fromStdString(bus.address()), QStringLiteral("units")) },
        nullptr };
};

TEST_F(UserUnitsTest, TellWhatRuns)
{
    MockService systemd(bus, "org.freedesktop.systemd1", "/org/freedesktop/systemd1", "org.freedesktop.systemd1.Manager");
    systemd.method("ListUnitsByPatterns", "asas", "a(ssssssouso)",
        "ret = [(name, '', 'loaded', 'active', 'running', '', dbus.ObjectPath('/u'), dbus.UInt32(0), '', dbus.ObjectPath('/'))"
        " for name in ('app-gnome-org.example.Editor-12.scope', 'app-unknown-1.scope', 'nonsense')]");
    EXPECT_EQ(list(), "Editor;");
    EXPECT_EQ(systemd.calls(), (std::vector<std::string> { "ListUnitsByPatterns ['active'] ['app-*.scope', 'app-*.service']" }));

    systemd.method("ListUnitsByPatterns", "asas", "s", "ret = 'an answer of another type'");
    EXPECT_EQ(list(), "");
}

TEST_F(UserUnitsTest, AreNotToBeHadWithoutTheServiceManager) { EXPECT_EQ(list(), "?"); }

TEST_F(UserUnitsTest, AreNotToBeHadWithoutABus)
{
    DesktopRunningApplications withoutBus({ catalog, {} }, nullptr);
    bool isAnswered = false;
    withoutBus.list([&](RunningApplications::List const& found) { isAnswered = !found; });
    time.runTasks();
    EXPECT_TRUE(isAnswered);
}

TEST_F(UserUnitsTest, ActivateOverTheBusWhatCanBeAndStartTheRest)
{
    MockService editor(bus, "org.example.Editor", "/org/example/Editor", "org.freedesktop.Application");
    editor.method("Activate", "a{sv}", "", "");
    applications.activate("org.example.Editor.desktop");
    applications.activate("plain.desktop");
    applications.activate("class:Unknown");
    time.runTasks();
    EXPECT_EQ(launched, (std::vector<std::string> { "plain.desktop" }));
    std::vector<std::string> calls;
    ASSERT_TRUE(tests::turnUntil([&] {
        auto const more = editor.calls(); // a call is told once
        calls.insert(calls.end(), more.begin(), more.end());
        return !calls.empty();
    }));
    EXPECT_TRUE(calls.front().starts_with("Activate")) << calls.front();
}

} // namespace
} // namespace zv
