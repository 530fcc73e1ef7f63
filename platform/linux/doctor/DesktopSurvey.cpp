#include "platform/linux/doctor/DesktopSurvey.h"

#include "platform/linux/hotkeys/GnomeKeyBinding.h"
#include "platform/linux/install/AutostartLoginService.h"
#include "platform/linux/install/GnomeExtension.h"
#include "platform/linux/session/LinuxDesktopCommands.h"
#include "platform/linux/session/LinuxScriptRunner.h"
#include "platform/linux/session/LoginManager.h"
#include "platform/linux/session/ScreenLock.h"

#include <gio/gio.h>

#include <filesystem>

namespace zv {

namespace {

using Allowed = DesktopFindings::Allowed;

constexpr std::chrono::seconds patience { 5 };
constexpr char const* watcher = "org.kde.StatusNotifierWatcher";
constexpr BusObject watcherObject { watcher, "/StatusNotifierWatcher", watcher };

DesktopFindings::StatusIcons statusIconsOn(BusConnection const& bus, Deadline const& deadline)
{
    using enum DesktopFindings::StatusIcons;
    if (!bus.hasOwner(watcher, deadline))
        return noWatcher;
    auto const value = bus.property(watcherObject, "IsStatusNotifierHostRegistered", "b", deadline);
    // A watcher without the property is a panel's own.
    return value && g_variant_get_boolean(value.get()) == FALSE ? withoutHost : shown;
}

DesktopFindings::FileManager fileManagerOn(std::optional<BusConnection> const& bus, Deadline const& deadline)
{
    using enum DesktopFindings::FileManager;
    if (bus && bus->canReach("org.freedesktop.FileManager1", deadline))
        return reveals;
    GObjectRef<GAppInfo> const handler(g_app_info_get_default_for_type("inode/directory", FALSE));
    return handler ? opensFolders : none;
}

/// Whether Nautilus is there without the library that loads its Python extensions.
bool lacksFilesExtension(Programs const& programs)
{
    if (!programs.has("nautilus"))
        return false;
    std::error_code ignored;
    for (auto const& library : std::filesystem::directory_iterator("/usr/lib", ignored)) {
        for (auto const* folder : { "nautilus/extensions-4", "nautilus/extensions-3.0" }) {
            if (std::filesystem::exists(library.path() / folder / "libnautilus-python.so", ignored))
                return false;
        }
    }
    return true;
}

Allowed allowedBy(BusConnection const& bus, char const* question, Deadline const& deadline)
{
    auto const reply = bus.callForText(loginManager, question, deadline);
    auto const answer = reply ? *reply : "";
    return answer == "yes" ? Allowed::yes : answer == "challenge" ? Allowed::afterPassword : Allowed::no;
}

void surveySessionBus(std::optional<BusConnection> const& bus, XdgDirectories const& directories, Deadline const& deadline, DesktopFindings& findings)
{
    findings.hasSessionBus = bus.has_value();
    findings.fileManager = fileManagerOn(bus, deadline);
    if (!bus)
        return;
    findings.statusIcons = statusIconsOn(*bus, deadline);
    auto folders = directories.dataDirs;
    folders.push_back(directories.data);
    findings.extension = GnomeExtension({ std::move(folders), [&] { return bus->hasOwner("org.zanthevell.Shell", deadline); } }).state();
    findings.hasPortal = bus->canReach("org.freedesktop.portal.Desktop", deadline);
    findings.hasNotifications = bus->canReach("org.freedesktop.Notifications", deadline);
}

void surveySystemBus(std::optional<BusConnection> const& bus, Deadline const& deadline, DesktopFindings& findings)
{
    findings.hasLoginService = bus && bus->canReach(loginManager.service, deadline);
    if (!findings.hasLoginService)
        return;
    findings.hasAuthorization = bus->canReach("org.freedesktop.PolicyKit1", deadline);
    findings.sleep = allowedBy(*bus, "CanSuspend", deadline);
    findings.restart = allowedBy(*bus, "CanReboot", deadline);
    findings.shutDown = allowedBy(*bus, "CanPowerOff", deadline);
}

} // namespace

void surveyServices(DesktopAccess const& access, XdgDirectories const& directories, std::vector<std::string> const& desktopNames, DesktopFindings& findings)
{
    Deadline const deadline(patience);
    findings.isGnome = access.desktop == Desktop::gnome;
    findings.key = GnomeKeyBinding({ findings.isGnome, {}, SettingsStore::ofThisMachine(directories) }).state();
    surveySessionBus(BusConnection::open(access.buses.session, deadline), directories, deadline, findings);
    surveySystemBus(BusConnection::open(access.buses.system, deadline), deadline, findings);
    findings.lacksFilesExtension = lacksFilesExtension(*access.programs);
    findings.screenLock = screenLockOf(access, patience);
    findings.forceQuit = LinuxScriptRunner::forceQuitOf(access);
    findings.placesWithoutProgram = LinuxDesktopCommands::placesWithoutProgram(access);
    AutostartLoginService::Options options;
    options.configHome = directories.config;
    options.program = "zanthe-vell";
    options.desktops = desktopNames;
    findings.openAtLogin = AutostartLoginService(std::move(options)).status();
}

} // namespace zv
