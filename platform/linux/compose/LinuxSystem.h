#pragma once

#include "cli/CountedWork.h"
#include "platform/System.h"
#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/linux/apps/DesktopRecentFiles.h"
#include "platform/linux/apps/DesktopSettingsPanes.h"
#include "platform/linux/apps/GioWorkspace.h"
#include "platform/linux/apps/XdgApplicationFolders.h"
#include "platform/linux/compose/LinuxFiles.h"
#include "platform/linux/machine/DesktopRecentServers.h"
#include "platform/linux/machine/DesktopVolumes.h"
#include "platform/linux/machine/LinuxComputerInfo.h"
#include "platform/linux/machine/SystemNetworkInterfaces.h"
#include "platform/linux/session/DesktopAccess.h"
#include "platform/linux/session/LinuxDesktopCommands.h"
#include "platform/linux/session/LinuxScriptRunner.h"
#include "platform/linux/session/LinuxSessionEvents.h"
#include "platform/linux/x11/DesktopRunningApplications.h"

#include <memory>
#include <optional>

namespace zv {

/// The parts of this machine that need no display, for the program and its commands. Made after
/// the toolkit's application object.
class LinuxSystem {
public:
    struct Over {
        LinuxFiles& files;
        Timers& timers;
        Tasks& tasks;
        DesktopAccess const& access;
        QDBusConnection sessionBus;
        std::unique_ptr<ClientWindows> windows; ///< null where nobody tells all windows
        WorkCount* pending; ///< counts pending work that commands wait for; null in the program
    };

    /// The references outlive the system.
    explicit LinuxSystem(Over over);
    LinuxSystem(LinuxSystem const&) = delete;
    LinuxSystem& operator=(LinuxSystem const&) = delete;

    [[nodiscard]] System system();
    [[nodiscard]] ApplicationFolders& applicationFolders() { return m_applicationFolders; }
    void useBus(QDBusConnection const& bus) { m_runningApplications.useBus(bus); }
    [[nodiscard]] Workspace& workspace() { return m_workspace; }

private:
    void launch(Url const& application);
    [[nodiscard]] Tasks& commandTasks();
    [[nodiscard]] RunningApplications& countedApplications();

    LinuxFiles& m_files;
    Timers& m_timers;
    Tasks& m_tasks;
    ApplicationCatalog m_catalog;
    XdgApplicationFolders m_applicationFolders;
    DesktopRunningApplications m_runningApplications;
    std::optional<CountedTasks> m_countedTasks;
    std::optional<CountedRunningApplications> m_countedApplications;
    DesktopRecentFiles m_recentFiles;
    DesktopVolumes m_volumes;
    DesktopRecentServers m_recentServers;
    SystemNetworkInterfaces m_networkInterfaces;
    DesktopSettingsPanes m_settingsPanes;
    GioWorkspace m_workspace;
    LinuxDesktopCommands m_desktop;
    LinuxComputerInfo m_computer;
    LinuxSessionEvents m_events;
    LinuxScriptRunner m_scripts;
    std::shared_ptr<ToolRunner> m_tools;
};

} // namespace zv
