#include "platform/linux/posix/FileDescriptor.h"
#include "platform/linux/session/LinuxScriptRunner.h"
#include "platform/linux/session/LinuxSessionEvents.h"
#include "platform/linux/session/ScreenLock.h"
#include "tests/linux/FakePrograms.h"
#include "tests/linux/PrivateBus.h"

#include <algorithm>

#include <sys/socket.h>
#include <sys/un.h>

namespace zv {
namespace {

using namespace std::chrono_literals;
using tests::FakePrograms;
using tests::MockService;
using tests::PrivateBus;
using Calls = std::vector<std::string>;

constexpr auto denied = "import dbus; raise dbus.exceptions.DBusException('No.', name='org.freedesktop.DBus.Error.AccessDenied')";
constexpr auto broken = "import dbus; raise dbus.exceptions.DBusException('Oh.', name='org.example.Broken')";
constexpr auto slow = "import time; time.sleep(1)";

std::string textOf(SessionEventOutcome const& outcome)
{
    using State = SessionEventOutcome::State;
    if (outcome.state == State::needsConfirmation)
        return "needs confirmation";
    return outcome.state == State::sent ? "sent" : std::to_string(outcome.status);
}

std::string textOf(ScriptOutcome const& outcome)
{
    using State = ScriptOutcome::State;
    if (outcome.state == State::failed)
        return "failed: " + outcome.errorMessage.value_or("-");
    if (outcome.state == State::mustTellUser)
        return "must tell";
    return outcome.state == State::succeeded ? "done" : "no equivalent";
}

/// Session events that reach only the test: two private buses, and programs that are only
/// recorded.
struct SessionServicesTest : testing::Test {
    SessionServicesTest() { access.programs = programs; }
    std::string send(SessionEvent event, std::chrono::milliseconds timeout = 10s) { return textOf(LinuxSession(access).send(event, timeout)); }
    Calls started() { return std::exchange(programs->started, {}); }

    std::shared_ptr<FakePrograms> programs = std::make_shared<FakePrograms>();
    DesktopAccess access;
};

TEST_F(SessionServicesTest, WithoutAnyBusEveryEventFailsAtOnce)
{
    for (auto const event : { SessionEvent::sleep, SessionEvent::restart, SessionEvent::shutDown, SessionEvent::logOut }) {
        EXPECT_EQ(send(event), "-600") << static_cast<int>(event);
        access.buses = { "unix:path=/nowhere/bus", "no address" };
    }
    for (auto const event : { SessionEvent::askToRestart, SessionEvent::askToShutDown, SessionEvent::askToLogOut })
        EXPECT_EQ(send(event), "needs confirmation") << static_cast<int>(event);
}

TEST_F(SessionServicesTest, ABusWithoutTheServiceIsNoService)
{
    PrivateBus const bus;
    access.buses.system = access.buses.session = bus.address();
    access.desktop = Desktop::kde;
    EXPECT_EQ(send(SessionEvent::sleep), "-600");
    EXPECT_EQ(send(SessionEvent::restart), "-600");
    EXPECT_EQ(send(SessionEvent::askToLogOut), "needs confirmation");
}

/// A socket that never answers.
struct SilentSocket {
    SilentSocket()
    {
        sockaddr_un address { AF_UNIX, {} };
        std::ranges::copy(path, address.sun_path);
        EXPECT_EQ(::bind(descriptor.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(descriptor.get(), 8), 0);
    }
    tests::TemporaryFolder folder;
    std::string path = folder.path("socket");
    FileDescriptor descriptor { ::socket(AF_UNIX, SOCK_STREAM, 0) };
};

TEST_F(SessionServicesTest, ABusThatHangsIsNoBusInTheEnd)
{
    SilentSocket const silent;
    access.buses.system = access.buses.session = "unix:path=" + silent.path;
    access.desktop = Desktop::kde;
    EXPECT_EQ(send(SessionEvent::sleep, 100ms), "-600");
    EXPECT_EQ(send(SessionEvent::askToLogOut, 100ms), "needs confirmation");
    EXPECT_EQ(textOf(lockScreen(access, 100ms)), "no equivalent");
}

struct LoginServiceTest : SessionServicesTest {
    LoginServiceTest()
    {
        access.buses.system = bus.address();
        for (auto const* check : { "CanSuspend", "CanReboot", "CanPowerOff" })
            login.method(check, "", "s", "ret = 'yes'");
        for (auto const* method : { "Suspend", "Reboot", "PowerOff" })
            login.method(method, "b", "", "");
        for (auto const* method : { "TerminateSession", "LockSession" })
            login.method(method, "s", "", "");
    }
    PrivateBus bus;
    MockService login { bus, "org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager" };
};

TEST_F(LoginServiceTest, TakesWhatNoDesktopTakes)
{
    struct Row {
        SessionEvent event;
        Calls calls;
    };
    Row const rows[] = {
        { SessionEvent::sleep, { "CanSuspend", "Suspend true" } },
        { SessionEvent::restart, { "CanReboot", "Reboot true" } },
        { SessionEvent::shutDown, { "CanPowerOff", "PowerOff true" } },
        { SessionEvent::logOut, { "TerminateSession 'auto'" } },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.event));
        EXPECT_EQ(send(row.event), "sent");
        EXPECT_EQ(login.calls(), row.calls);
    }
    access.sessionId = "c7";
    EXPECT_EQ(send(SessionEvent::logOut), "sent");
    EXPECT_EQ(login.calls(), Calls { "TerminateSession 'c7'" });
    EXPECT_EQ(send(SessionEvent::askToRestart), "needs confirmation");
    EXPECT_EQ(login.calls(), Calls {}) << "nothing is forced before the user was asked";
}

TEST_F(LoginServiceTest, ARefusalATimeoutAndAnErrorHaveTheirStatus)
{
    struct Row {
        char const* check;
        char const* call;
        std::string outcome, why;
        std::chrono::milliseconds timeout = 10s;
    };
    Row const rows[] = {
        { "ret = 'no'", "", "-10004", "this user may not" },
        { "ret = 'na'", "", "-10004", "this machine cannot" },
        { "ret = 'challenge'", slow, "sent", "after a password, which takes its time", 500ms },
        { "ret = 'yes'", denied, "-10004", "denied" },
        { "ret = 'challenge'", denied, "-10004", "the password was wrong" },
        { "ret = 'yes'", broken, "-1708", "an error of its own" },
        { broken, "", "-1708", "an error at the first question" },
        { "ret = 'yes'", slow, "-1712", "too slow", 300ms },
        { slow, "", "-1712", "too slow at the first question", 300ms },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        login.method("CanSuspend", "", "s", row.check);
        login.method("Suspend", "b", "", row.call);
        EXPECT_EQ(send(SessionEvent::sleep, row.timeout), row.outcome);
        login.calls(); // waits until a slow call has ended
    }
    login.method("CanSuspend", "", "i", "ret = 3");
    EXPECT_EQ(send(SessionEvent::sleep), "-600") << "a reply that makes no sense is none";
}

TEST_F(SessionServicesTest, EachDesktopAsksInItsOwnWay)
{
    struct Row {
        Desktop desktop;
        SessionEvent event;
        std::string command;
    };
    Row const rows[] = {
        { Desktop::gnome, SessionEvent::askToRestart, "gnome-session-quit --reboot" },
        { Desktop::gnome, SessionEvent::logOut, "gnome-session-quit --logout --no-prompt" },
        { Desktop::mate, SessionEvent::askToRestart, "mate-session-save --shutdown-dialog" },
        { Desktop::cinnamon, SessionEvent::askToShutDown, "cinnamon-session-quit --power-off" },
        { Desktop::xfce, SessionEvent::askToLogOut, "xfce4-session-logout" },
        { Desktop::xfce, SessionEvent::restart, "xfce4-session-logout --reboot" },
        { Desktop::xfce, SessionEvent::logOut, "xfce4-session-logout --logout" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.command);
        access.desktop = row.desktop;
        programs->installed = { row.command.substr(0, row.command.find(' ')) };
        EXPECT_EQ(send(row.event), "sent");
        EXPECT_EQ(started(), Calls { row.command });
        programs->failing = programs->installed;
        EXPECT_NE(send(row.event), "sent") << "one that fails at once did nothing";
        programs->failing.clear();
        started();
    }
    access.desktop = Desktop::other;
    EXPECT_EQ(send(SessionEvent::askToLogOut), "needs confirmation");
    EXPECT_EQ(started(), Calls {}) << "another desktop's question would end another session";
}

TEST_F(SessionServicesTest, PlasmaIsAskedOverItsBus)
{
    PrivateBus const bus;
    access.buses.session = bus.address();
    access.desktop = Desktop::kde;
    {
        MockService prompt(bus, "org.kde.LogoutPrompt", "/LogoutPrompt", "org.kde.LogoutPrompt");
        for (auto const* method : { "promptReboot", "promptShutDown", "promptLogout" })
            prompt.method(method, "", "", "");
        for (auto const event : { SessionEvent::askToRestart, SessionEvent::askToShutDown, SessionEvent::askToLogOut })
            EXPECT_EQ(send(event), "sent");
        EXPECT_EQ(prompt.calls(), (Calls { "promptReboot", "promptShutDown", "promptLogout" }));
    }
    MockService shutdown(bus, "org.kde.Shutdown", "/Shutdown", "org.kde.Shutdown");
    for (auto const* method : { "logoutAndReboot", "logoutAndShutdown", "logout" })
        shutdown.method(method, "", "", "");
    for (auto const event : { SessionEvent::restart, SessionEvent::shutDown, SessionEvent::logOut })
        EXPECT_EQ(send(event), "sent");
    EXPECT_EQ(shutdown.calls(), (Calls { "logoutAndReboot", "logoutAndShutdown", "logout" }));
    EXPECT_EQ(send(SessionEvent::sleep), "-600") << "the desktop suspends nothing";
}

TEST_F(LoginServiceTest, ScreensAreLockedByWhoeverDoesThat)
{
    auto const lock = [&] { return textOf(lockScreen(access, 10s)); };
    EXPECT_EQ(lock(), "done");
    EXPECT_EQ(login.calls(), Calls { "LockSession 'auto'" });

    login.method("LockSession", "s", "", denied);
    EXPECT_EQ(lock(), "failed: No.");
    programs->installed = { "loginctl", "xflock4" };
    EXPECT_EQ(lock(), "done");
    EXPECT_EQ(started(), Calls { "xflock4" });

    login.calls();
    access.buses.session = bus.address();
    MockService saver(bus, "org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver");
    saver.method("Lock", "", "", "");
    EXPECT_EQ(lock(), "done");
    EXPECT_EQ(saver.calls(), Calls { "Lock" });
    EXPECT_EQ(login.calls(), Calls {}) << "once is enough";
    saver.method("Lock", "", "", broken);
    EXPECT_EQ(lock(), "done");
    EXPECT_EQ(started(), Calls { "xflock4" }) << "a saver that cannot is passed over";
    login.method("LockSession", "s", "", "");
    login.calls();
    saver.method("Lock", "", "", slow);
    EXPECT_EQ(textOf(lockScreen(access, 300ms)), "done");
    EXPECT_EQ(started(), Calls { "xflock4" }) << "nor does one that hangs leave the screen open";
    EXPECT_EQ(login.calls(), Calls {}) << "nobody may hear the login service";
    access.desktop = Desktop::kde;
    EXPECT_EQ(textOf(lockScreen(access, 300ms)), "done");
    EXPECT_EQ(login.calls(), Calls { "LockSession 'auto'" }) << "another desktop's locker is none here";
}

TEST_F(SessionServicesTest, NobodyToLockIsNoEquivalent) { EXPECT_EQ(textOf(lockScreen(access, 10s)), "no equivalent"); }

TEST_F(SessionServicesTest, ForceQuitOpensTheTaskManagerElseTellsFirst)
{
    auto const run = [&](bool userWasTold) { return textOf(LinuxScriptRunner::perform({ ScriptPurpose::forceQuit, "", userWasTold }, access, {})); };
    access.desktop = Desktop::xfce;
    EXPECT_EQ(run(false), "no equivalent");
    programs->installed = { "xkill", "gnome-system-monitor" };
    EXPECT_EQ(run(false), "must tell");
    EXPECT_EQ(started(), Calls {});
    EXPECT_EQ(run(true), "done");
    EXPECT_EQ(started(), Calls { "xkill" });
    programs->installed.insert("xfce4-taskmanager");
    EXPECT_EQ(run(false), "done");
    EXPECT_EQ(started(), Calls { "xfce4-taskmanager" });
    access.desktop = Desktop::other;
    programs->installed = { "xkill", "gnome-system-monitor" };
    EXPECT_EQ(run(false), "done") << "what is installed decides where the desktop is not known";
    EXPECT_EQ(started(), Calls { "gnome-system-monitor" });
}

} // namespace
} // namespace zv
