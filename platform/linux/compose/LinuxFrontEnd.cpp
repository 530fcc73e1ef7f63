#include "platform/linux/compose/LinuxFrontEnd.h"

#include "app/shell/RelocationTexts.h"
#include "app/shell/RunningProgramTexts.h"
#include "base/Log.h"
#include "platform/linux/apps/Launching.h"
#include "platform/linux/bus/BusRunningProgram.h"
#include "platform/linux/compose/ProcessEnvironment.h"
#include "platform/linux/menu/DesktopMenuPlacer.h"
#include "platform/linux/posix/LaunchContext.h"
#include "platform/linux/posix/StartMemory.h"
#include "platform/linux/toolkit/DesktopDiagnostics.h"
#include "platform/linux/toolkit/SessionBus.h"
#include "platform/linux/updates/AppcastUpdateEngine.h"
#include "platform/linux/wayland/GnomeShell.h"
#include "platform/linux/wayland/StageMenuPlacer.h"
#include "platform/linux/wayland/WaylandOverlay.h"
#include "platform/linux/x11/StartupNotification.h"

#include <QDBusConnectionInterface>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <thread>

namespace zv {

namespace {

QString const trayName = QStringLiteral("org.kde.StatusNotifierWatcher");

/// Local feeds are allowed where resources are given, for trials.
DownloadSchemes downloadSchemes(ProgramPlaces const& paths) { return paths.givenResources.empty() ? DownloadSchemes::httpsOnly : DownloadSchemes::localToo; }

std::string resourcesOfThisProgram(ProgramPlaces const& paths)
{
    auto const& folders = paths.ownResources;
    auto const found = std::find_if(folders.begin(), folders.end(), [](auto const& folder) { return QFile::exists(QString::fromStdString(folder)); });
    return found == folders.end() ? std::string() : *found;
}

LinuxInstallation::Options installationOptions(LinuxFiles const& files, std::function<void()> giveWay)
{
    LinuxInstallation::Options options;
    options.userFolder = files.paths().user.home + "/.local/bin";
    options.userApplications = files.paths().user.data + "/applications";
    options.entryNotWritten = tr(relocationTexts::entryNotWritten);
    options.isMountedAppImage = files.environment().contains("APPIMAGE");
    options.resources = resourcesOfThisProgram(files.paths());
    options.giveWay = std::move(giveWay);
    return options;
}

std::vector<std::string> foldersFrom(std::string const& own, std::vector<std::string> const& ofTheSystem)
{
    std::vector<std::string> folders { own };
    folders.insert(folders.end(), ofTheSystem.begin(), ofTheSystem.end());
    return folders;
}

LookSources lookSources(LinuxFiles const& files)
{
    auto const& user = files.paths().user;
    auto const* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return { .settings = { .connection = x11 ? x11->connection() : nullptr,
                 .configFolders = foldersFrom(user.config, user.configDirs),
                 .desktops = files.audience().desktops },
        .dataFolders = foldersFrom(user.data, user.dataDirs) };
}

bool startDetached(QString const& program, QStringList const& arguments, Environment const& environment)
{
    QProcessEnvironment variables;
    for (auto const& [name, value] : environment)
        variables.insert(QString::fromStdString(name), QString::fromLocal8Bit(value.c_str()));
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setProcessEnvironment(variables);
    return process.startDetached();
}

/// A desktop's settings of what starts at login.
struct AutostartSettings {
    Desktop desktop;
    std::vector<std::string> command;
};
AutostartSettings const autostartSettings[] = {
    { Desktop::gnome, { "gnome-session-properties" } },
    { Desktop::gnome, { "gnome-tweaks" } },
    { Desktop::kde, { "systemsettings", "kcm_autostart" } },
    { Desktop::kde, { "systemsettings5", "kcm_autostart" } },
    { Desktop::xfce, { "xfce4-session-settings" } },
    { Desktop::mate, { "mate-session-properties" } },
    { Desktop::cinnamon, { "cinnamon-settings", "startup" } },
    { Desktop::lxqt, { "lxqt-config-session" } },
};

} // namespace

LinuxFrontEnd::LinuxFrontEnd(int& count, char** arguments, Environment environment)
    : m_files(std::move(environment))
    , m_application(count, arguments)
    , m_look(lookSources(m_files), valueOf(m_files.environment(), "QT_QPA_PLATFORMTHEME"))
    , m_wayland(WaylandGlobals::ofToolkit())
    , m_seatKeyboard(SeatKeyboard::of(m_wayland.get()))
    , m_toplevels(ForeignToplevels::of(m_wayland.get()))
    , m_access(DesktopAccess::of(m_files.environment()))
    , m_bus(sessionBus(m_access.buses))
    , m_instance(m_bus, handlers(), m_files.paths().instanceLock)
    , m_system(
          { .files = m_files, .timers = m_timers, .tasks = m_tasks, .access = m_access, .sessionBus = m_bus, .windows = clientWindows(), .pending = nullptr })
    , m_icons(m_tasks, m_timers, m_files.trust())
    , m_performer(m_modifierKeys, m_tasks)
    , m_placer(menuPlacer())
    , m_presenter(m_performer, *m_placer)
    , m_menuHost(m_presenter)
    , m_statusBar(m_bus, m_presenter, m_performer)
    , m_keyboard(m_timers, m_bus, m_files.environment())
    , m_overlay(m_wayland ? waylandOverlay(*m_wayland, m_toplevels) : OverlayFrontEnd::make(sessionKind()))
    , m_installation(installationOptions(m_files, [this] { m_instance.release(); }))
    , m_loginService({ m_files.paths().user.config, m_files.places().bundle.path(), m_files.audience().desktops, [this] { return openAutostartSettings(); },
          [this](Url const& folder) { m_system.workspace().open(folder); } })
    , m_extension({ foldersFrom(m_files.paths().user.data, m_files.paths().user.dataDirs), [this] { return GnomeShell::windowsOn(m_bus) != nullptr; } })
    , m_desktopKey({ m_access.desktop == Desktop::gnome, m_files.places().bundle.path(), SettingsStore::ofThisMachine(m_files.paths().user) })
    , m_userNotifications(m_bus)
    , m_downloads(m_files.paths().downloadsFolder, downloadSchemes(m_files.paths()))
    , m_packageOrigin(m_files.places().bundle.path())
    , m_settingsWindow([this]() -> SettingsModels& { return m_app->settingsModels(); }, [this](std::uint32_t key) { return m_keyboard.keyOnLayout(key); })
    , m_signals([this] { m_application.terminate(); })
{
    if (sessionKind() == SessionKind::x11)
        setLaunchTokens({ .startupId = beginStartup });
    if (m_seatKeyboard)
        useSeat();
    m_statusBar.onActivationToken = useActivationToken;
    m_look.onAdopted = [this] { m_statusBar.redraw(); };
    m_statusBar.color = [this] { return laurelColor(); };
    m_presenter.setKeyReader([this](QKeyEvent const& event) { return keyPressOf(event, [this](auto key) { return m_keyboard.keyOnLayout(key); }); });
    m_presenter.setPressedElsewhere([this](QPoint at, Menu const* menu) { pressedElsewhere(at, menu); });
}

LinuxFrontEnd::~LinuxFrontEnd() { setLaunchTokens({}); }

std::unique_ptr<MenuPlacer> LinuxFrontEnd::menuPlacer()
{
    if (!m_wayland)
        return std::make_unique<DesktopMenuPlacer>([this](QRect const& monitor) { return m_overlay ? m_overlay->freeAreaOf(monitor) : monitor; });
    return std::make_unique<StageMenuPlacer>(*m_wayland,
        StageMenuPlacer::Desktop { .isGnome = m_access.desktop == Desktop::gnome,
            .pointer = [this] { return GnomeShell::pointerOn(m_bus); },
            .leaving =
                [this](wl_surface* stage) {
                    if (m_tokens)
                        m_tokens->renew(stage, m_seatKeyboard->serial());
                } });
}

void LinuxFrontEnd::useSeat()
{
    m_seatKeyboard->onKeymap = [this](auto const& text) { m_keyboard.useKeymap(text); };
    m_seatKeyboard->onGroup = [this](auto number) { m_keyboard.useLayout(number); };
    m_tokens.emplace(*m_wayland);
    setLaunchTokens({ .activationToken = [this] { return m_tokens->take(); } });
}

int LinuxFrontEnd::run()
{
    if (!m_instance.claim())
        return openSettingsOfOther();
    m_files.defaults().useTasks(m_tasks);
    m_app = std::make_unique<ZantheVellApp>(m_system.system(), surface());
    watchForTray();
    SessionBusWatch const bus(m_access.buses.session, m_bus, [this](auto const& connection) { useBus(connection); });
    m_app->launch(); // a copy that takes over ends this process once it has started
    m_look.useBus(m_bus);
    m_loginService.mend();
    publishHotkeys();
    watchSettings();
    auto const preparing = m_timers.after(std::chrono::milliseconds(200), [this] { prepareForOpening(); });
    auto const status = m_application.isTerminating() ? 0 : LinuxApplication::exec();
    m_settingsWindow.close();
    m_files.defaults().writeUnsaved(); // while there is somebody to be told of a failure
    m_app.reset();
    m_files.defaults().writeUnsaved();
    return status;
}

/// What the first opening needs is made anew after the rest was given back.
void LinuxFrontEnd::prepareForOpening()
{
    giveBackCodeOfTheStart();
    if (auto const* statusItem = m_app->delegate().statusItem())
        m_presenter.prepare(statusItem->menu());
    giveBackFreedMemory();
}

/// Waits a moment for a program that has only just started, or lost the bus.
int LinuxFrontEnd::openSettingsOfOther()
{
    BusRunningProgram other(m_access.buses.session, runningProgramTexts(), activationTokenOf(m_files.environment()));
    for (int attempt = 0; attempt < 30 && m_bus.isConnected() && !other.isRunning(); ++attempt)
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    auto const told = other.openSettings();
    if (!told)
        logLine("it runs already, and cannot be asked to open its settings. " + told.error());
    return told ? 0 : 1;
}

/// Keeps what `hotkeys` prints at hand, as the main thread may be busy when it is asked for.
void LinuxFrontEnd::publishHotkeys()
{
    if (!m_app->delegate().hasParts())
        return;
    auto& center = m_app->delegate().parts().hotkeys();
    center.onRegistered = [this, &center] {
        auto report = hotkeyReport(&center);
        std::lock_guard const guard(m_reporting);
        m_hotkeyReport = std::move(report);
        m_reported.notify_all();
    };
    center.onRegistered();
}

/// Any thread. Waits less than a second for a program that has only just started.
std::string LinuxFrontEnd::publishedHotkeys()
{
    std::unique_lock lock(m_reporting);
    m_reported.wait_for(lock, std::chrono::milliseconds(800), [this] { return m_hotkeyReport.has_value(); });
    return m_hotkeyReport.value_or(hotkeyReport(nullptr));
}

void LinuxFrontEnd::useBus(QDBusConnection const& bus)
{
    m_bus = bus;
    m_instance.useBus(bus);
    m_statusBar.useBus(bus);
    m_keyboard.useBus(bus);
    m_userNotifications.useBus(bus);
    m_system.useBus(bus);
    m_look.useBus(bus);
    watchForTray();
    m_trayObservers.changed(0);
}

/// Panels of GTK and KDE tint symbolic pictures; LXQt's does not, and nor do many beside a bare window manager. Cinnamon's
/// finds them among the themes alone.
LaurelColor LinuxFrontEnd::laurelColor() const
{
    if (m_access.desktop == Desktop::cinnamon && !laurelIconThemePath().isEmpty())
        return LaurelColor::green;
    bool const drawsAsTheyAre = m_access.desktop == Desktop::lxqt || m_access.desktop == Desktop::other;
    auto const isDark = m_overlay && drawsAsTheyAre ? m_overlay->isPanelDark() : std::nullopt;
    return !isDark ? LaurelColor::ofThePanel : *isDark ? LaurelColor::light : LaurelColor::dark;
}

void LinuxFrontEnd::watchSettings()
{
    auto const descriptor = m_files.defaults().changeDescriptor();
    if (descriptor < 0)
        return;
    m_settingsWatch = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(m_settingsWatch.get(), &QSocketNotifier::activated, &m_application, [this] { m_files.defaults().handleChange(); });
}

ProgramHandlers LinuxFrontEnd::handlers()
{
    return { .showMenu = [this](auto at) { showMenu(at); },
        .openSettings = [this] { m_app->reopen(); },
        .quit = [this] { m_application.terminate(); },
        .addFiles = [this](std::vector<Url> files) { return m_app->addFiles(std::move(files)); },
        .hotkeys = [this] { return publishedHotkeys(); },
        .findings = {},
        .takeActivationToken = useActivationToken,
        .canShowMenu = [this] { return canShowMenu(); } };
}

Result<void> LinuxFrontEnd::canShowMenu() const
{
    if (m_placer->reach() == MenuPlacer::Reach::nowhere)
        return Failure { tr(noWindowText) };
    return {};
}

/// Opens the menu at the place; without one, where the icon was clicked last, else at the pointer.
void LinuxFrontEnd::showMenu(std::optional<RunningProgram::ScreenPoint> at)
{
    auto const* statusItem = m_app->delegate().statusItem();
    if (statusItem)
        m_presenter.open(statusItem->menu(), at ? QPointF(at->x, at->y).toPoint() : m_statusBar.lastClick());
}

/// Passes a press on the corner on, which closed the icon's menu. The corner's own is just closed.
void LinuxFrontEnd::pressedElsewhere(QPoint at, Menu const* menu)
{
    auto const* statusItem = m_app ? m_app->delegate().statusItem() : nullptr;
    if (m_overlay && statusItem && menu != statusItem->overlayMenu().get())
        m_overlay->pressAt(at);
}

UpdateEngineFactory LinuxFrontEnd::updateEngine()
{
    return [this](UpdateChannels& channels, UpdateUserDriver& userDriver) {
        auto const files = m_files.files();
        return std::make_unique<AppcastUpdateEngine>(AppcastUpdateEngine::Services { files.defaults, files.resources, m_files.clock(), m_timers, m_application,
                                                         m_system.workspace(), m_downloads, m_packageOrigin, m_updateWindow, openPackage() },
            channels, userDriver);
    };
}

std::function<void(Url const&, std::function<void(Result<void>)>)> LinuxFrontEnd::openPackage()
{
    return [this](Url const& package, std::function<void(Result<void>)> done) {
        auto const open = [package, bus = m_access.buses.session] {
            auto const opened = openUrl(package, bus, StartTrust());
            return opened ? Result<void>() : Failure { opened.error().reason };
        };
        m_tasks.inBackground(TaskPriority::user, open, std::move(done));
    };
}

bool LinuxFrontEnd::statusIconsAreShown() const
{
    m_trayObservers.access(0);
    auto* bus = m_bus.interface();
    return bus && bus->isServiceRegistered(trayName);
}

/// Tells when a tray comes or goes: whoever asked may answer differently then.
void LinuxFrontEnd::watchForTray()
{
    m_trayWatch = std::make_unique<QDBusServiceWatcher>(trayName, m_bus);
    QObject::connect(m_trayWatch.get(), &QDBusServiceWatcher::serviceOwnerChanged, m_trayWatch.get(), [this] { m_trayObservers.changed(0); });
}

bool LinuxFrontEnd::openAutostartSettings()
{
    for (auto const& settings : autostartSettings) {
        QStringList arguments;
        for (auto const& word : settings.command)
            arguments << QString::fromStdString(word);
        auto const program = QStandardPaths::findExecutable(arguments.takeFirst());
        if (isForDesktop(settings.desktop, m_access.desktop) && !program.isEmpty())
            return startDetached(program, arguments, m_files.environment());
    }
    return false;
}

std::unique_ptr<ClientWindows> LinuxFrontEnd::clientWindows() const
{
    if (auto windows = ForeignToplevels::windowsOf(m_toplevels))
        return windows;
    if (sessionKind() == SessionKind::wayland)
        return windowsOnBus(m_bus);
    return clientWindowsOfThisDisplay();
}

std::optional<OverlaySeams> LinuxFrontEnd::overlay() { return m_overlay ? std::optional(m_overlay->seams()) : std::nullopt; }

Surface LinuxFrontEnd::surface()
{
    return { .desk = { .application = m_application, .alerts = m_alerts, .modifierKeys = m_modifierKeys, .clipboard = m_clipboard },
        .looks = { .text = m_text, .icons = m_icons },
        .presence = { .statusBar = m_statusBar,
            .showsStatusItems = [this] { return statusIconsAreShown(); },
            .menuHost = m_menuHost,
            .hotkeys = m_keyboard.registrar(),
            .keyboardLayout = m_keyboard.layout(),
            .overlay = overlay() },
        .windows = { .settings = m_settingsWindow,
            .settingsAlerts = m_alerts,
            .notes = m_notesWindows,
            .filePanels = m_filePanels,
            .forms = m_forms,
            .pictures = m_pictures,
            .notifications = m_userNotifications },
        .home = { .installation = m_installation,
            .loginService = m_loginService,
            .makeUpdateEngine = updateEngine(),
            .installedApplications = [this](auto use) { m_system.applicationFolders().list(std::move(use)); },
            .permissions = nullptr,
            .extension = &m_extension,
            .desktopKey = &m_desktopKey,
            .provideServices = {},
            .diagnostics = [this] { return desktopDiagnostics(m_files.environment(), statusIconsAreShown()); } } };
}

} // namespace zv
