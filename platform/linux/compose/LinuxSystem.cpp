#include "platform/linux/compose/LinuxSystem.h"

#include "base/Log.h"
#include "platform/linux/session/PosixToolRunner.h"

namespace zv {

namespace {

template <class Counted, class Seam> std::optional<Counted> countedBy(WorkCount* pending, Seam& seam)
{
    return pending ? std::optional<Counted>(std::in_place, seam, *pending) : std::nullopt;
}

} // namespace

LinuxSystem::LinuxSystem(Over over)
    : m_files(over.files)
    , m_timers(over.timers)
    , m_tasks(over.tasks)
    , m_catalog(m_tasks, over.files.paths().user.applicationFolders(), over.files.audience())
    , m_applicationFolders(m_catalog, over.files.paths().user.applicationFolders())
    , m_runningApplications(
          { .catalog = m_catalog, .launch = [this](Url const& application) { launch(application); }, .sessionBus = over.sessionBus }, std::move(over.windows))
    , m_countedTasks(countedBy<CountedTasks>(over.pending, m_tasks))
    , m_countedApplications(countedBy<CountedRunningApplications>(over.pending, m_runningApplications))
    , m_recentFiles({ m_tasks, m_files.clock(), m_catalog }, m_files.paths().user.recentlyUsedFile(), LaunchLog(m_files.paths().launchLog))
    , m_volumes(m_tasks, m_timers)
    , m_recentServers(m_tasks, DesktopRecentServers::Files::of(m_files.paths().user))
    , m_networkInterfaces(m_tasks, over.access.buses.system)
    , m_settingsPanes(m_catalog)
    , m_workspace(over.access.buses.session, LaunchLog(m_files.paths().launchLog), m_files.trust(),
          { .tasks = commandTasks(), .runningApplications = countedApplications(), .applications = m_catalog })
    , m_desktop(over.access, "/etc/os-release", commandTasks())
    , m_computer("/", commandTasks())
    , m_events(over.access, commandTasks())
    , m_scripts(over.access, SettingsStore::ofThisMachine(m_files.paths().user), commandTasks())
    , m_tools(std::make_shared<PosixToolRunner>(m_files.environment()))
{
}

Tasks& LinuxSystem::commandTasks() { return m_countedTasks ? static_cast<Tasks&>(*m_countedTasks) : m_tasks; }

RunningApplications& LinuxSystem::countedApplications()
{
    return m_countedApplications ? static_cast<RunningApplications&>(*m_countedApplications) : m_runningApplications;
}

void LinuxSystem::launch(Url const& application)
{
    m_workspace.openNewInstance(application, [application](Result<void> const& started) {
        if (!started)
            logLine("could not open " + application.toString() + ": " + started.error());
    });
}

System LinuxSystem::system()
{
    return { .kind = SystemKind::linuxDesktop,
        .files = m_files.files(),
        .time = { .clock = m_files.clock(), .timers = m_timers, .tasks = m_tasks },
        .lists = { .recentFiles = m_recentFiles,
            .runningApplications = m_runningApplications,
            .volumes = m_volumes,
            .recentServers = m_recentServers,
            .networkInterfaces = m_networkInterfaces,
            .settingsPanes = m_settingsPanes,
            .applicationFolders = &m_applicationFolders },
        .session = { .workspace = m_workspace, .desktop = m_desktop, .computer = m_computer, .events = m_events, .scripts = m_scripts, .tools = m_tools },
        .places = m_files.places() };
}

} // namespace zv
