#include "platform/linux/compose/CommandLineMenu.h"

#include "base/Log.h"
#include "cli/CommandMenu.h"
#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/linux/apps/DesktopRecentFiles.h"
#include "platform/linux/apps/DesktopSettingsPanes.h"
#include "platform/linux/apps/GioWorkspace.h"
#include "platform/linux/entries/DesktopEntryText.h"
#include "platform/linux/files/LinuxFolderReader.h"
#include "platform/linux/icons/ThemeIcons.h"
#include "platform/linux/machine/DesktopRecentServers.h"
#include "platform/linux/machine/DesktopVolumes.h"
#include "platform/linux/machine/LinuxComputerInfo.h"
#include "platform/linux/machine/SystemNetworkInterfaces.h"
#include "platform/linux/posix/ProgramFiles.h"
#include "platform/linux/session/LinuxDesktopCommands.h"
#include "platform/linux/session/LinuxScriptRunner.h"
#include "platform/linux/session/LinuxSessionEvents.h"
#include "platform/linux/session/PosixToolRunner.h"
#include "platform/linux/text/CellTextMeasure.h"
#include "platform/linux/toolkit/QtRunLoop.h"
#include "platform/linux/x11/DesktopRunningApplications.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace zv {

namespace {

/// Qt's loop needs an application object, not a display.
struct LoopApplication {
    int argumentCount = 1;
    char name[12] = "zanthe-vell";
    char* arguments[2] = { name, nullptr };
    QCoreApplication application { argumentCount, arguments };
};

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

/// Where no bus is known the toolkit would start one of its own.
QDBusConnection sessionBus(BusAddresses const& buses)
{
    return buses.session.empty() ? QDBusConnection(QStringLiteral("none")) : QDBusConnection::sessionBus();
}

} // namespace

struct CommandLineMenu::Parts {
    Parts(Services const& services, XdgDirectories const& directories)
        : access(DesktopAccess::ofThisMachine(directories))
        , running({ catalog, desktops, [this](Url const& application) { launch(application); }, sessionBus(access.buses) }, display.clientWindows())
        , countedRunning(running, pending)
        , volumes(loop, loop)
        , servers(loop, DesktopRecentServers::standardFiles())
        , addresses(loop, access.buses.system)
        , panes(catalog, desktops)
        , pictures(loop, loop)
        , recentFiles({ loop, services.clock, catalog }, directories.data + "/recently-used.xbel", LaunchLog(launchLogFile(directories)))
        , workspace(access.buses.session, LaunchLog(launchLogFile(directories)), { tasks, countedRunning })
        , desktop(access, "/etc/os-release", tasks)
        , computer("/", tasks)
        , events(access, tasks)
        , scripts(access, DockStore::ofThisMachine(directories), tasks)
        , menu({ services.preferences, services.resources,
              { workspace, desktop, computer, events, scripts, std::make_shared<PosixToolRunner>(), running, loop, pending, services.clock, services.locations,
                  services.program, services.out, turnUntil, Url::fromPath(itemsFolder(directories)) },
              std::make_shared<LinuxFolderReader>(DesktopAudience::current()), cells, recentFiles, pictures, volumes, servers, addresses, panes, loop })
    {
    }

    void launch(Url const& application)
    {
        workspace.openNewInstance(application, [application](std::optional<std::string> const& failure) {
            if (failure)
                logLine("could not open " + application.toString() + ": " + *failure);
        });
    }

    LoopApplication application;
    QtRunLoop loop;
    WorkCount pending;
    CountedTasks tasks { loop, pending };
    std::vector<std::string> desktops = DesktopAudience::current().desktops;
    Display display;
    ApplicationCatalog catalog { loop, applicationFolders() };
    DesktopAccess access;
    DesktopRunningApplications running;
    CountedRunningApplications countedRunning;
    CellTextMeasure cells;
    DesktopVolumes volumes;
    DesktopRecentServers servers;
    SystemNetworkInterfaces addresses;
    DesktopSettingsPanes panes;
    ThemeIcons pictures;
    DesktopRecentFiles recentFiles;
    GioWorkspace workspace;
    LinuxDesktopCommands desktop;
    LinuxComputerInfo computer;
    LinuxSessionEvents events;
    LinuxScriptRunner scripts;
    CommandMenu menu;
};

CommandLineMenu::CommandLineMenu(Services const& services, XdgDirectories const& directories)
    : m_parts(std::make_unique<Parts>(services, directories))
{
}

CommandLineMenu::~CommandLineMenu() = default;

MenuSession& CommandLineMenu::session() { return m_parts->menu.session(); }

EntryChooser& CommandLineMenu::chooser() { return m_parts->menu.chooser(); }

} // namespace zv
