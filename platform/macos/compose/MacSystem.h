#pragma once

#include "platform/System.h"
#include "platform/macos/cocoa/Factories.h"

#include <memory>

namespace zv {

/// The stored things of this Mac and their places: enough for the simplest command. Needs
/// no application object.
class MacFiles {
public:
    MacFiles();

    [[nodiscard]] Files files() const;
    [[nodiscard]] Places const& places() const { return m_places; }
    [[nodiscard]] Clock& clock() const { return *m_clock; }

private:
    Places m_places;
    std::unique_ptr<UserDefaults> m_defaults = makeUserDefaults();
    std::unique_ptr<Resources> m_resources = makeResources();
    std::shared_ptr<FileSystem> m_disk = makeFileSystem();
    std::unique_ptr<Bookmarks> m_bookmarks = makeBookmarks();
    std::unique_ptr<AliasFiles> m_aliases = makeAliasFiles();
    std::shared_ptr<FolderReader const> m_folders = makeFolderReader();
    std::unique_ptr<Clock> m_clock = makeClock();
};

/// The seams of this Mac that need no display, for the program and for its commands.
class MacSystem {
public:
    /// `files` outlives the system.
    explicit MacSystem(MacFiles const& files)
        : m_files(files)
    {
    }

    [[nodiscard]] System system() const;
    [[nodiscard]] Tasks& tasks() const { return *m_tasks; }
    [[nodiscard]] Timers& timers() const { return *m_timers; }

private:
    MacFiles const& m_files;
    std::unique_ptr<Timers> m_timers = makeTimers();
    std::unique_ptr<Tasks> m_tasks = makeTasks();
    std::unique_ptr<RecentFiles> m_recentFiles = makeRecentFiles();
    std::unique_ptr<RunningApplications> m_runningApplications = makeRunningApplications();
    std::unique_ptr<Volumes> m_volumes = makeVolumes(*m_tasks);
    std::unique_ptr<RecentServers> m_recentServers = makeRecentServers();
    std::unique_ptr<NetworkInterfaces> m_networkInterfaces = makeNetworkInterfaces();
    std::unique_ptr<SettingsPanes> m_settingsPanes = makeSettingsPanes(*m_tasks);
    std::unique_ptr<Workspace> m_workspace = makeWorkspace(*m_tasks);
    std::unique_ptr<DesktopCommands> m_desktop = makeDesktopCommands();
    std::unique_ptr<ComputerInfo> m_computer = makeComputerInfo();
    std::unique_ptr<SessionEvents> m_events = makeSessionEvents();
    std::unique_ptr<ScriptRunner> m_scripts = makeScriptRunner();
    std::shared_ptr<ToolRunner> m_tools = makeToolRunner();
};

} // namespace zv
