#include "platform/linux/session/LinuxScriptRunner.h"

#include "platform/linux/session/ScreenLock.h"

#include <optional>
#include <utility>

namespace zv {

namespace {

using State = ScriptOutcome::State;

constexpr std::chrono::seconds serviceTimeout { 10 };

struct TaskManager {
    std::optional<Desktop> desktop;
    char const* program;
};

constexpr TaskManager taskManagers[] = {
    { Desktop::kde, "plasma-systemmonitor" },
    { Desktop::kde, "ksysguard" },
    { Desktop::gnome, "gnome-system-monitor" },
    { Desktop::xfce, "xfce4-taskmanager" },
    { Desktop::mate, "mate-system-monitor" },
    { Desktop::cinnamon, "gnome-system-monitor" },
    { Desktop::lxqt, "qps" },
    { std::nullopt, "lxtask" },
};

bool canClickOnWindow(DesktopAccess const& access) { return !access.hasForeignWindows && access.programs->has("xkill"); }

ScriptOutcome forceQuit(bool userWasTold, DesktopAccess const& access)
{
    for (auto const& manager : taskManagers) {
        if (isForDesktop(manager.desktop, access.desktop) && access.programs->start({ manager.program }))
            return {};
    }
    if (!canClickOnWindow(access))
        return { State::noEquivalent };
    if (!userWasTold)
        return { State::mustTellUser };
    return { access.programs->start({ "xkill" }) ? State::succeeded : State::noEquivalent };
}

} // namespace

ScriptOutcome LinuxScriptRunner::perform(Script const& script, DesktopAccess const& access, SettingsStore const& dockStore)
{
    if (script.purpose == ScriptPurpose::forceQuit)
        return forceQuit(script.userWasTold, access);
    if (script.purpose == ScriptPurpose::lockScreen)
        return lockScreen(access, serviceTimeout);
    return changeDock(script.purpose, access, dockStore, serviceTimeout);
}

DesktopFindings::ForceQuit LinuxScriptRunner::forceQuitOf(DesktopAccess const& access)
{
    using enum DesktopFindings::ForceQuit;
    for (auto const& manager : taskManagers) {
        if (isForDesktop(manager.desktop, access.desktop) && access.programs->has(manager.program))
            return taskManager;
    }
    return canClickOnWindow(access) ? clickOnWindow : none;
}

void LinuxScriptRunner::run(Script const& script, std::function<void(ScriptOutcome)> done)
{
    m_tasks.runDetached([access = m_access, store = m_dockStore, script, done = std::move(done)] {
        return std::function<void()>([done, outcome = perform(script, access, store)] { done(outcome); });
    });
}

} // namespace zv
