#include "platform/linux/CommandLineLists.h"

#include "app/menu/DynamicMenuProvider.h"
#include "platform/linux/DesktopEntryText.h"
#include "platform/linux/DesktopRecentServers.h"
#include "platform/linux/DesktopSettingsPanes.h"
#include "platform/linux/DesktopVolumes.h"
#include "platform/linux/ProgramFiles.h"
#include "platform/linux/SystemNetworkInterfaces.h"
#include "platform/linux/qt/DesktopRunningApplications.h"
#include "platform/linux/qt/ThemeIcons.h"

namespace zv {

namespace {

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

struct CommandLineLists::Parts {
    Parts(Services const& services, DesktopAccess const& access, XdgDirectories const& directories)
        : running({ services.applications, desktops, services.launch, sessionBus(access.buses) }, display.clientWindows())
        , volumes(services.tasks, services.timers)
        , servers(services.tasks, DesktopRecentServers::standardFiles())
        , addresses(services.tasks, access.buses.system)
        , panes(services.applications, desktops)
        , folder(Url::fromPath(itemsFolder(directories)))
        , machine({ running, volumes, servers, addresses, panes, services.preferences, services.folders, folder })
        , pictures(services.tasks)
        , icons(pictures, folder)
    {
    }

    std::vector<std::string> desktops = DesktopAudience::current().desktops;
    Display display;
    DesktopRunningApplications running;
    DesktopVolumes volumes;
    DesktopRecentServers servers;
    SystemNetworkInterfaces addresses;
    DesktopSettingsPanes panes;
    Url folder;
    DynamicMenuProvider machine;
    ThemeIcons pictures;
    MenuIcon icons;
};

CommandLineLists::CommandLineLists(Services const& services, DesktopAccess const& access, XdgDirectories const& directories)
    : m_parts(std::make_unique<Parts>(services, access, directories))
{
}

CommandLineLists::~CommandLineLists() = default;

RunningApplications& CommandLineLists::runningApplications() { return m_parts->running; }

MenuIcons& CommandLineLists::icons() { return m_parts->icons; }

DynamicLists CommandLineLists::with(SubmenuFiller& shortcuts, SubmenuFiller& locations)
{
    DynamicLists lists { {}, &shortcuts, &locations };
    for (auto const kind : { MenuItemKind::zantheVellItems, MenuItemKind::mountedVolumes, MenuItemKind::recentServers, MenuItemKind::runningApplications,
             MenuItemKind::ipAddress, MenuItemKind::systemPrefs })
        lists.providers[kind] = &m_parts->machine;
    return lists;
}

} // namespace zv
