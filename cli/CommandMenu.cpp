#include "cli/CommandMenu.h"

#include "base/Log.h"

#include <utility>

namespace zv {

namespace {

/// Endless in practice: a shortcut may run for long.
constexpr std::chrono::hours noLimit { 24 * 20 };

/// Removes the program's name, which a command's messages have already.
std::string withoutProgramName(std::string const& line)
{
    constexpr std::string_view name = "Zanthe Vell: ";
    return line.starts_with(name) ? line.substr(name.size()) : line;
}

} // namespace

CommandMenu::CommandMenu(TurningSystem const& over, Preferences const& preferences, RunningProgram& program, std::ostream& out)
    : m_pending(over.pending)
    , m_turnUntil(over.turnUntil)
    , m_tasks(over.system.time.tasks, m_pending)
    , m_running(over.system.lists.runningApplications, m_pending)
    , m_system(countedSystem(over.system))
    , m_looks(over.looks)
    , m_terminal(program, out)
    , m_desk(m_terminal.desk())
    , m_menus({ .system = m_system,
          .desk = m_desk,
          .looks = m_looks,
          .preferences = preferences,
          .listedFolders = m_hotkeys,
          .chosen = nullptr,
          .shell = { .openSettingsWindow = [this] { m_terminal.openSettings(); }, .canCheckForUpdates = {}, .checkForUpdates = {} },
          .entryShell = {} })
    , m_session(m_menus.builder(), m_turnUntil)
{
}

/// Counts the entries' work, to wait for before the command ends.
System CommandMenu::countedSystem(System const& system)
{
    auto const& lists = system.lists;
    return { .kind = system.kind,
        .files = system.files,
        .time = { .clock = system.time.clock, .timers = system.time.timers, .tasks = m_tasks },
        .lists = { .recentFiles = lists.recentFiles,
            .runningApplications = m_running,
            .volumes = lists.volumes,
            .recentServers = lists.recentServers,
            .networkInterfaces = lists.networkInterfaces,
            .settingsPanes = lists.settingsPanes,
            .applicationFolders = lists.applicationFolders },
        .session = system.session,
        .places = system.places };
}

std::vector<std::string> CommandMenu::choose(MenuEntry const& entry, ModifierMask held)
{
    // Log lines are failures here: nothing else reports them.
    LogCapture const log([this](std::string const& line) { m_terminal.fail(withoutProgramName(line)); });
    m_terminal.hold(held);
    entry.target->invoke();
    m_turnUntil([this] { return m_pending.isZero(); }, noLimit);
    return m_terminal.takeFailures();
}

} // namespace zv
