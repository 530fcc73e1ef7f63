#include "platform/linux/compose/LinuxCommands.h"

#include "app/doctor/DesktopChecks.h"
#include "app/doctor/ProgramChecks.h"
#include "app/shell/RunningProgramTexts.h"
#include "platform/linux/compose/LinuxSystem.h"
#include "platform/linux/doctor/DesktopSurvey.h"
#include "platform/linux/doctor/DisplaySurvey.h"
#include "platform/linux/icons/ThemeIcons.h"
#include "platform/linux/text/CellTextMeasure.h"
#include "platform/linux/toolkit/CommandApplication.h"

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

/// The X server, where there is one: it knows which applications run.
class Display {
public:
    Display() = default;
    ~Display() { xcb_disconnect(m_connection); }
    Display(Display const&) = delete;
    Display& operator=(Display const&) = delete;

    [[nodiscard]] std::optional<X11ClientWindows> clientWindows() const
    {
        if (xcb_connection_has_error(m_connection) != 0 || qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
            return std::nullopt;
        return X11ClientWindows(m_connection, xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root);
    }

private:
    xcb_connection_t* m_connection = xcb_connect(nullptr, nullptr);
};

} // namespace

/// The system with a run loop of the toolkit's, which needs no display.
struct LinuxCommands::Turning {
    explicit Turning(LinuxFiles& files)
        : access(DesktopAccess::ofThisMachine(files.directories()))
        , machine({ .files = files,
              .loop = loop,
              .access = access,
              .sessionBus = sessionBus(access.buses),
              .windows = display.clientWindows(),
              .pending = &pending })
        , system(machine.system())
        , pictures(loop, loop)
    {
    }

    CommandApplication application;
    QtRunLoop loop;
    WorkCount pending;
    Display display;
    DesktopAccess access;
    LinuxSystem machine;
    System system;
    CellTextMeasure cells;
    ThemeIcons pictures;
};

LinuxCommands::LinuxCommands(Streams streams)
    : CommandContext(streams)
{
}

LinuxCommands::~LinuxCommands() { forgetMenu(); }

LinuxFiles& LinuxCommands::machine()
{
    if (!m_machine)
        m_machine.emplace();
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
        m_runningProgram = std::make_unique<BusRunningProgram>(runningProgramTexts());
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
        { { "Settings", machine().settingsFolder() }, { "Items", places().itemsFolder }, { "Backups", places().backupsFolder } });
    DesktopFindings findings;
    surveyDisplay(findings);
    surveyServices(DesktopAccess::ofThisMachine(machine().directories()), machine().directories(), findings);
    std::ranges::move(desktopChecks(findings), std::back_inserter(checks));
    return checks;
}

} // namespace zv
