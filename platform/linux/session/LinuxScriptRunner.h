#pragma once

#include "platform/linux/session/DesktopAccess.h"
#include "platform/linux/session/DockSettings.h"
#include "platform/program/DesktopFindings.h"
#include "platform/session/ScriptRunner.h"
#include "platform/time/Tasks.h"

namespace zv {

/// Performs the scripts' purposes through the desktop's own services and programs.
class LinuxScriptRunner : public ScriptRunner {
public:
    LinuxScriptRunner(DesktopAccess access, SettingsStore dockStore, Tasks& tasks)
        : m_access(std::move(access))
        , m_dockStore(std::move(dockStore))
        , m_tasks(tasks)
    {
    }
    void run(Script const& script, std::function<void(ScriptOutcome)> done) override;

    /// The work of run(), in the caller's thread.
    [[nodiscard]] static ScriptOutcome perform(Script const& script, DesktopAccess const& access, SettingsStore const& dockStore);
    [[nodiscard]] static DesktopFindings::ForceQuit forceQuitOf(DesktopAccess const& access);

private:
    DesktopAccess m_access;
    SettingsStore m_dockStore;
    Tasks& m_tasks;
};

} // namespace zv
