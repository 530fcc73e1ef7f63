#include "platform/linux/compose/LinuxCommands.h"

#include "app/doctor/DesktopChecks.h"
#include "app/doctor/ProgramChecks.h"
#include "app/shell/RunningProgramTexts.h"
#include "platform/linux/compose/LinuxSystem.h"
#include "platform/linux/compose/ProcessEnvironment.h"
#include "platform/linux/doctor/DesktopSurvey.h"
#include "platform/linux/doctor/DisplaySurvey.h"
#include "platform/linux/icons/ThemeIconSource.h"
#include "platform/linux/text/CellTextMeasure.h"
#include "platform/linux/toolkit/CommandApplication.h"
#include "platform/linux/toolkit/DisplayServer.h"
#include "platform/linux/toolkit/QtTasks.h"
#include "platform/linux/toolkit/QtTimers.h"
#include "platform/linux/toolkit/SessionBus.h"
#include "platform/linux/wayland/ForeignToplevels.h"
#include "platform/linux/wayland/GnomeShell.h"
#include "platform/linux/wayland/WaylandGlobals.h"
#include "platform/linux/x11/X11ClientWindows.h"
#include "platform/linux/x11/X11Connection.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <climits>
#include <iterator>
#include <unistd.h>

namespace zv {

namespace {

void turnUntil(std::function<bool()> const& isDone, std::chrono::milliseconds limit)
{
    bool isOver = false;
    QTimer patience;
    patience.setSingleShot(true);
    QObject::connect(&patience, &QTimer::timeout, [&] { isOver = true; });
    patience.start(limit);
    while (!isOver && !isDone())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// In a Wayland session its X server knows of only some of the windows.
std::unique_ptr<ClientWindows> clientWindows(
    X11Connection const* x, WaylandGlobals const* wayland, QDBusConnection const& sessionBus, Environment const& environment)
{
    if (auto windows = ForeignToplevels::windowsOf(ForeignToplevels::of(wayland)))
        return windows;
    if (sessionKindOf(environment) == SessionKind::wayland)
        return windowsOnBus(sessionBus);
    return x ? std::make_unique<X11ClientWindows>(x->get(), x->root()) : nullptr;
}

} // namespace

/// The system with the toolkit's run loop, without a display.
struct LinuxCommands::Turning {
    explicit Turning(LinuxFiles& files)
        : access(DesktopAccess::of(files.environment()))
        , machine({ .files = files,
              .timers = timers,
              .tasks = tasks,
              .access = access,
              .sessionBus = bus,
              .windows = clientWindows(display.get(), wayland.get(), bus, files.environment()),
              .pending = &pending })
        , system(machine.system())
        , pictures(tasks, timers, files.trust())
    {
    }

    CommandApplication application;
    QtTimers timers;
    QtTasks tasks;
    WorkCount pending;
    std::unique_ptr<X11Connection> display = X11Connection::open();
    std::unique_ptr<WaylandGlobals> wayland = WaylandGlobals::connected();
    DesktopAccess access;
    QDBusConnection bus = sessionBus(access.buses);
    LinuxSystem machine;
    System system;
    CellTextMeasure cells;
    ThemeIconSource pictures;
};

LinuxCommands::LinuxCommands(Streams streams, Environment environment)
    : CommandContext(streams)
    , m_environment(std::move(environment))
{
}

LinuxCommands::~LinuxCommands() { forgetMenu(); }

LinuxFiles& LinuxCommands::machine()
{
    if (!m_machine)
        m_machine.emplace(m_environment);
    return *m_machine;
}

Files const& LinuxCommands::files()
{
    if (!m_files)
        m_files.emplace(machine().files());
    return *m_files;
}

RunningProgram& LinuxCommands::runningProgram()
{
    if (!m_runningProgram)
        m_runningProgram
            = std::make_unique<BusRunningProgram>(BusAddresses::of(m_environment).session, runningProgramTexts(), activationTokenOf(m_environment));
    return *m_runningProgram;
}

TurningSystem LinuxCommands::turningSystem()
{
    if (!m_turning)
        m_turning = std::make_unique<Turning>(machine());
    return {
        .system = m_turning->system, .looks = { .text = m_turning->cells, .icons = m_turning->pictures }, .pending = m_turning->pending, .turnUntil = turnUntil
    };
}

Url LinuxCommands::currentFolder()
{
    char path[PATH_MAX];
    return Url::fromPath(::getcwd(path, sizeof path) ? path : "/");
}

std::vector<DoctorCheck> LinuxCommands::doctorChecks()
{
    auto checks = programChecks(runningProgram(), files().resources, *files().disk, store(),
        { { KeptFolder::Holds::settings, Url::fromPath(machine().paths().settingsFile).parent() }, { KeptFolder::Holds::items, places().itemsFolder },
            { KeptFolder::Holds::backups, places().backupsFolder } });
    DesktopFindings findings;
    auto const wayland = WaylandGlobals::connected();
    surveyDisplay(m_environment, wayland && wayland->layerShell(), findings);
    surveyServices(DesktopAccess::of(m_environment), machine().paths().user, machine().audience().desktops, findings);
    std::ranges::move(desktopChecks(findings), std::back_inserter(checks));
    return checks;
}

} // namespace zv
