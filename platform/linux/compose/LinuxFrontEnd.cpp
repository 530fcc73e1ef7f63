#include "platform/linux/compose/LinuxFrontEnd.h"

#include "app/updates/AppcastUpdateEngine.h"
#include "base/Log.h"
#include "platform/linux/bus/BusRunningProgram.h"
#include "platform/linux/files/LinuxFolderReader.h"
#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/session/PosixToolRunner.h"
#include "platform/linux/toolkit/DisplayServer.h"
#include "platform/linux/toolkit/ProgramEnvironment.h"

#include <QCursor>
#include <QDBusConnectionInterface>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>

namespace zv {

namespace {

/// Without an address in the environment, and none in the usual place, there is no bus: the
/// toolkit would start one of its own, which nobody else is on.
QDBusConnection sessionBus()
{
    bool const isKnown
        = !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") || QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
    return isKnown ? QDBusConnection::sessionBus() : QDBusConnection(QStringLiteral("none"));
}

/// Another folder of resources that comes first, for those who try out texts, menus or feeds.
constexpr char const* resourcesVariable = "ZANTHE_VELL_RESOURCES";

std::vector<std::string> resourceFolders()
{
    auto folders = BundleResources::standardFolders();
    if (auto const given = qgetenv(resourcesVariable); !given.isEmpty())
        folders.insert(folders.begin(), given.toStdString());
    return folders;
}

/// Feeds of this machine are for those who try them out.
DownloadSchemes downloadSchemes() { return qEnvironmentVariableIsEmpty(resourcesVariable) ? DownloadSchemes::httpsOnly : DownloadSchemes::localToo; }

std::string resourcesOfThisProgram()
{
    auto const folders = BundleResources::standardFolders();
    auto const found = std::find_if(folders.begin(), folders.end(), [](auto const& folder) { return QFile::exists(QString::fromStdString(folder)); });
    return found == folders.end() ? std::string() : *found;
}

LinuxInstallation::Options installationOptions(XdgDirectories const& directories, Environment const& environment, std::function<void()> giveWay)
{
    LinuxInstallation::Options options;
    options.userFolder = directories.home + "/.local/bin";
    options.userApplications = directories.data + "/applications";
    options.isMountedAppImage = environment.contains("APPIMAGE");
    options.resources = resourcesOfThisProgram();
    options.giveWay = std::move(giveWay);
    return options;
}

/// The desktops' own windows for what starts at login, by what is installed.
std::vector<std::vector<std::string>> const& autostartSettings()
{
    static std::vector<std::vector<std::string>> const commands { { "gnome-session-properties" }, { "systemsettings", "kcm_autostart" },
        { "xfce4-session-settings" }, { "mate-session-properties" }, { "cinnamon-settings", "startup" }, { "lxqt-config-session" } };
    return commands;
}

Url ownFolder(std::string const& base, char const* name) { return Url::fromPath(base).appending("zanthe-vell").appending(name); }

std::vector<InstalledApplication> applicationsToStart(ApplicationIndex const& index)
{
    auto const desktops = DesktopAudience::current().desktops;
    std::vector<InstalledApplication> applications;
    for (auto const& entry : index.entries()) {
        if (entry.isListed(desktops) && entry.missingProgram().empty())
            applications.push_back({ entry.name, Url::fromPath(entry.path) });
    }
    return applications;
}

} // namespace

LinuxFrontEnd::LinuxFrontEnd(int& count, char** arguments)
    : m_application(count, arguments)
    , m_bus(sessionBus())
    , m_instance(m_bus, requests())
    , m_directories(XdgDirectories::current())
    , m_defaults(ownFolder(m_directories.config, "org.zanthevell.ZantheVell.plist").path())
    , m_resources(resourceFolders())
    , m_files(std::make_shared<LinuxFileSystem>())
    , m_access(DesktopAccess::ofThisMachine(m_directories))
    , m_catalog(m_runLoop, applicationFolders())
    , m_runningApplications({ m_catalog, DesktopAudience::current().desktops,
                                [this](Url const& url) { m_workspace.openNewInstance(url, [](std::optional<std::string> const&) {}); }, m_bus },
          clientWindowsOfThisDisplay())
    , m_workspace(m_access.buses.session, LaunchLog(ownFolder(m_directories.state, "launches").path()), { m_runLoop, m_runningApplications })
    , m_desktop(m_access, "/etc/os-release", m_runLoop)
    , m_computer("/", m_runLoop)
    , m_sessionEvents(m_access, m_runLoop)
    , m_scripts(m_access, DockStore::ofThisMachine(m_directories), m_runLoop)
    , m_icons(m_runLoop, m_runLoop)
    , m_recentFiles({ m_runLoop, m_clock, m_catalog }, m_directories.data + "/recently-used.xbel", LaunchLog(ownFolder(m_directories.state, "launches").path()))
    , m_volumes(m_runLoop, m_runLoop)
    , m_recentServers(m_runLoop, DesktopRecentServers::standardFiles())
    , m_networkInterfaces(m_runLoop, m_access.buses.system)
    , m_settingsPanes(m_catalog, DesktopAudience::current().desktops)
    , m_performer(m_modifierKeys, m_runLoop)
    , m_presenter(m_performer)
    , m_menuHost(m_presenter)
    , m_statusBar(m_bus, m_presenter, m_performer)
    , m_keyboard(m_runLoop, m_bus)
    , m_overlay(OverlayFrontEnd::make())
    , m_environment(processEnvironment())
    , m_bundle(LinuxInstallation::runningBundle(m_environment))
    , m_installation(installationOptions(m_directories, m_environment, [this] { m_instance.release(); }))
    , m_loginService(
          { m_directories.config, m_bundle.path(), [this] { return openAutostartSettings(); }, [this](Url const& folder) { m_workspace.open(folder); } })
    , m_userNotifications(m_bus)
    , m_downloads(m_directories.cache + "/zanthe-vell", downloadSchemes())
    , m_packageOrigin(m_bundle.path())
    , m_settingsWindow([this]() -> SettingsModels& { return m_app->settingsModels(); }, [this](std::uint32_t key) { return m_keyboard.keyOnLayout(key); })
    , m_signals([this] { m_application.terminate(); })
{
    adoptDesktopIconTheme();
}

LinuxFrontEnd::~LinuxFrontEnd() = default;

int LinuxFrontEnd::run()
{
    if (!m_instance.claim()) {
        if (auto const failure = BusRunningProgram().openSettings()) {
            logLine("it runs already, and cannot be asked to open its settings. " + *failure);
            return 1;
        }
        return 0;
    }
    m_app = std::make_unique<ZantheVellApp>(platform());
    m_colorScheme = std::make_unique<ColorScheme>(m_bus);
    m_app->launch(); // when a copy takes over, it ends this process once it has started
    watchSettings();
    auto const preparing = m_runLoop.after(std::chrono::milliseconds(200), [this] { m_presenter.prepare(); });
    auto const status = m_application.isTerminating() ? 0 : LinuxApplication::exec();
    m_settingsWindow.close();
    m_app.reset();
    return status;
}

void LinuxFrontEnd::watchSettings()
{
    auto const descriptor = m_defaults.changeDescriptor();
    if (descriptor < 0)
        return;
    m_settingsWatch = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(m_settingsWatch.get(), &QSocketNotifier::activated, &m_application, [this] { m_defaults.handleChange(); });
}

ProgramRequests LinuxFrontEnd::requests()
{
    return {
        [this](std::optional<QPoint> at) { showMenu(at); },
        [this] { m_app->reopen(); },
        [this] { m_application.terminate(); },
        [this](std::vector<Url> files) { return m_app->addFiles(std::move(files)); },
        [this] { return QString::fromStdString(m_app->hotkeyReport()); },
    };
}

/// Without a place, where the icon was clicked last, else where the pointer is.
void LinuxFrontEnd::showMenu(std::optional<QPoint> at)
{
    if (!canPlaceWindows()) {
        logLine("a menu can be put on the screen on X11 only; click its icon in the panel instead");
        return;
    }
    if (auto const* statusItem = m_app->statusItem())
        m_presenter.open(statusItem->menu(), at.value_or(m_statusBar.lastClick().value_or(QCursor::pos())));
}

UpdateEngineFactory LinuxFrontEnd::updateEngine()
{
    return [this](UpdateChannels& channels, UpdateUserDriver& userDriver) {
        return std::make_unique<AppcastUpdateEngine>(AppcastUpdateEngine::Services { m_defaults, m_resources, m_clock, m_runLoop, m_application, m_workspace,
                                                         m_downloads, m_packageOrigin, m_updateWindow },
            channels, userDriver);
    };
}

bool LinuxFrontEnd::statusIconsAreShown() const
{
    auto* bus = m_bus.interface();
    return bus && bus->isServiceRegistered(QStringLiteral("org.kde.StatusNotifierWatcher"));
}

bool LinuxFrontEnd::openAutostartSettings()
{
    for (auto const& command : autostartSettings()) {
        QStringList arguments;
        for (auto const& word : command)
            arguments << QString::fromStdString(word);
        auto const program = QStandardPaths::findExecutable(arguments.takeFirst());
        if (!program.isEmpty())
            return QProcess::startDetached(program, arguments);
    }
    return false;
}

std::optional<AppleMenuOverlayServices> LinuxFrontEnd::overlay()
{
    if (!m_overlay || !m_overlay->isSupported())
        return std::nullopt;
    return m_overlay->services(m_runLoop, m_clock);
}

ZantheVellApp::Platform LinuxFrontEnd::platform()
{
    return {
        m_defaults,
        m_resources,
        m_files,
        m_bookmarks,
        m_aliases,
        std::make_shared<LinuxFolderReader>(DesktopAudience::current()),
        m_clock,
        m_runLoop,
        m_runLoop, //
        m_application,
        m_alerts,
        m_modifierKeys,
        m_clipboard,
        m_workspace,
        m_desktop,
        m_computer,
        m_sessionEvents,
        m_scripts,
        std::make_shared<PosixToolRunner>(), //
        m_text,
        m_icons,
        m_recentFiles,
        m_runningApplications,
        m_volumes,
        m_recentServers,
        m_networkInterfaces,
        m_settingsPanes, //
        m_keyboard.registrar(),
        m_keyboard.layout(),
        m_statusBar,
        m_menuHost,
        overlay(),
        m_settingsWindow, //
        m_installation,
        m_loginService,
        m_notesWindows,
        m_userNotifications,
        updateEngine(),
        m_filePanels,
        SettingsWording::linuxDesktop(),
        [this] { return statusIconsAreShown() ? std::nullopt : std::optional(SettingsWording::linuxDesktop().statusItemIsNotShown); },
        [this] { return desktopDiagnostics(statusIconsAreShown()); },
        ZantheVellApp::Platform::LastResort::settingsAtStart, //
        m_bundle,
        m_environment,
        m_directories.home,
        ownFolder(m_directories.data, "Zanthe Vell Items"),
        ownFolder(m_directories.data, "Backups"),
        [this](auto use) { m_catalog.withIndex([use](ApplicationCatalog::Index const& index) { use(applicationsToStart(*index)); }); },
    };
}

} // namespace zv
