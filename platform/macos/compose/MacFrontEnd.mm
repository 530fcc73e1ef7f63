#import "platform/macos/compose/MacFrontEnd.h"

#include "app/doctor/MacChecks.h"
#include "app/settings/ApplicationFolders.h"
#include "base/Log.h"
#import "platform/macos/files/ProgramFolders.h"
#import "platform/macos/program/ServicesProvider.h"
#import "platform/macos/session/SystemValues.h"

namespace zv {

namespace {

/// The user's own folders, then those for all users.
std::vector<Url> applicationFolders()
{
    return { homeFolder().appending("Applications"), Url::fromPath("/Applications"), Url::fromPath("/System/Applications") };
}

/// Converts a command's point, counted from the primary screen's top left corner.
Point onScreen(RunningProgram::ScreenPoint at)
{
    NSArray<NSScreen*>* const screens = NSScreen.screens;
    double const height = screens.firstObject.frame.size.height;
    return { at.x, height - at.y };
}

Point atPointer()
{
    NSPoint const place = NSEvent.mouseLocation;
    return { place.x, place.y };
}

} // namespace

MacFrontEnd::MacFrontEnd()
    : m_port([this](std::string const& request) { return answerTo(request, handlers(), m_system.tasks()); })
    , m_settingsWindow(makeSettingsWindow([this]() -> SettingsModels& { return m_app->settingsModels(); }))
    , m_app(std::make_unique<ZantheVellApp>(m_system.system(), surface()))
    , m_services([[ZVServicesProvider alloc] initWithFunction:[this](std::vector<Url> files) { return m_app->addFiles(std::move(files)); }])
{
}

void MacFrontEnd::launch()
{
    if (!m_port.open())
        logLine("commands cannot reach the program: another one answers them, or the system does not let it");
    (void)m_app->launch(); // a copy that takes over ends this process once it has started
}

ProgramHandlers MacFrontEnd::handlers()
{
    return { .showMenu = [this](auto at) { showMenu(at); },
        .openSettings = [this] { m_app->reopen(); },
        .quit = [this] { m_application->terminate(); },
        .addFiles = [this](std::vector<Url> files) { return m_app->addFiles(std::move(files)); },
        .hotkeys = [this] { return m_app->hotkeyReport(); },
        .findings = [this] { return encoded(findings()); } };
}

/// Opens one menu at a time; without a place, at the icon, else at the pointer.
void MacFrontEnd::showMenu(std::optional<RunningProgram::ScreenPoint> at)
{
    auto const* controller = m_app->delegate().statusItem();
    if (!controller || m_menuTracking.isOpen || (!at && m_statusBar->openMenu()))
        return;
    m_menuHost->popUp(controller->overlayMenu(), at ? onScreen(*at) : atPointer());
}

MacFindings MacFrontEnd::findings() const
{
    auto found = surveyThisMac();
    MacProgramFindings running { m_permissions->state(Permission::automation), m_permissions->state(Permission::accessibility), {} };
    if (m_app->delegate().hasParts()) {
        for (auto const& conflict : m_app->delegate().parts().hotkeys().conflicts())
            running.refusedShortcuts.push_back(conflict.shortcut);
    }
    found.running = std::move(running);
    return found;
}

/// Reads some hundreds of property lists, off the main thread.
void MacFrontEnd::listApplications(std::function<void(std::vector<InstalledApplication>)> use)
{
    auto const look = [reader = makeFolderReader(), folders = applicationFolders()] { return applicationsIn(folders, *reader, bundleIdentifierOf); };
    m_system.tasks().inBackground(TaskPriority::user, look, std::move(use));
}

std::string MacFrontEnd::diagnostics() const
{
    auto const system = fromNSString(NSProcessInfo.processInfo.operatingSystemVersionString);
    auto const screens = std::to_string(NSScreen.screens.count);
    return "macOS " + system + "\nModel: " + systemText("hw.model") + "\nScreens: " + screens
        + "\nMenu bar visibility: " + (m_menuBarVisibility ? "told by the window server" : "not told") + "\n";
}

Surface MacFrontEnd::surface()
{
    return { .desk = { .application = *m_application, .alerts = *m_alerts, .modifierKeys = *m_modifierKeys, .clipboard = *m_clipboard },
        .looks = { .text = *m_text, .icons = *m_icons },
        .presence = { .statusBar = *m_statusBar,
            .showsStatusItems = [] { return true; },
            .menuHost = *m_menuHost,
            .hotkeys = *m_hotkeys,
            .keyboardLayout = *m_keyboardLayout,
            .overlay = OverlaySeams { .menuBars = *m_menuBars,
                .screens = *m_screens,
                .workspaceEvents = *m_workspaceEvents,
                .pointerMonitor = *m_pointerMonitor,
                .panels = *m_panels,
                .visibility = m_menuBarVisibility.get() } },
        .windows = { .settings = *m_settingsWindow,
            .settingsAlerts = *m_sheets,
            .notes = *m_notesWindows,
            .filePanels = *m_filePanels,
            .forms = *m_forms,
            .pictures = *m_pictures,
            .notifications = *m_userNotifications },
        .home = { .installation = *m_installation,
            .loginService = *m_loginService,
            .makeUpdateEngine = makeUpdateEngine,
            .installedApplications = [this](auto use) { listApplications(std::move(use)); },
            .permissions = m_permissions.get(),
            .extension = nullptr,
            .desktopKey = nullptr,
            .provideServices = [this] { NSApp.servicesProvider = m_services; },
            .diagnostics = [this] { return diagnostics(); } } };
}

} // namespace zv
