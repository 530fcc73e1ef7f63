#import "platform/macos/compose/MacFrontEnd.h"

#include "app/doctor/MacChecks.h"
#include "base/Log.h"
#import "platform/macos/files/ProgramFolders.h"
#import "platform/macos/program/ServicesProvider.h"
#import "platform/macos/session/SystemValues.h"

namespace zv {

namespace {

Environment processEnvironment()
{
    Environment environment;
    NSDictionary* const given = [[NSProcessInfo processInfo] environment];
    for (NSString* name in given)
        environment[fromNSString(name)] = fromNSString([given objectForKey:name]);
    return environment;
}

Url bundleOfThisProgram() { return fromNSURL([[NSBundle mainBundle] bundleURL]); }

/// The user's own come before those for all users.
std::vector<Url> applicationFolders()
{
    return { homeFolder().appending("Applications"), Url::fromPath("/Applications"), Url::fromPath("/System/Applications") };
}

/// A place that a command names is counted from the top left corner of the primary screen.
Point onScreen(RunningProgram::ScreenPoint at)
{
    NSArray* const screens = [NSScreen screens];
    double const height = [screens count] > 0 ? [(NSScreen*)[screens objectAtIndex:0] frame].size.height : 0;
    return { at.x, height - at.y };
}

Point atPointer()
{
    NSPoint const place = [NSEvent mouseLocation];
    return { place.x, place.y };
}

} // namespace

MacFrontEnd::MacFrontEnd()
    : m_port([this](std::string const& request) { return answerTo(request, services(), *m_tasks); })
    , m_settingsWindow(makeSettingsWindow([this]() -> SettingsModels& { return m_app->settingsModels(); }))
    , m_app(std::make_unique<ZantheVellApp>(platform()))
    , m_services([[ZVServicesProvider alloc] initWithFunction:[this](std::vector<Url> files) { return m_app->addFiles(std::move(files)); }])
{
}

void MacFrontEnd::launch()
{
    if (!m_port.open())
        logLine("commands cannot reach the program: another one answers them, or the system does not let it");
    (void)m_app->launch(); // when a copy takes over, it ends this process once it has started
}

ProgramHandlers MacFrontEnd::services()
{
    return {
        [this](auto at) { showMenu(at); },
        [this] { m_app->reopen(); },
        [this] { m_application->terminate(); },
        [this](std::vector<Url> files) { return m_app->addFiles(std::move(files)); },
        [this] { return m_app->hotkeyReport(); },
        [this] { return encoded(findings()); },
    };
}

/// Without a place, where the icon is, else where the pointer is. One menu at a time.
void MacFrontEnd::showMenu(std::optional<RunningProgram::ScreenPoint> at)
{
    auto const* controller = m_app->statusItem();
    if (!controller || m_menuTracking.isOpen || (!at && m_statusBar->openMenu()))
        return;
    m_menuHost->popUp(controller->overlayMenu(), at ? onScreen(*at) : atPointer());
}

MacFindings MacFrontEnd::findings() const
{
    auto found = surveyThisMac();
    MacProgramFindings running { m_permissions->state(Permission::automation), m_permissions->state(Permission::accessibility), {} };
    for (auto const& conflict : m_app->hotkeys().conflicts())
        running.refusedShortcuts.push_back(conflict.shortcut);
    found.running = std::move(running);
    return found;
}

/// Off the main thread: some hundreds of property lists are read.
void MacFrontEnd::listApplications(std::function<void(std::vector<InstalledApplication>)> use)
{
    auto const look = [reader = makeFolderReader(), folders = applicationFolders()] { return applicationsIn(folders, *reader, bundleIdentifierOf); };
    m_tasks->inBackground(TaskPriority::user, look, std::move(use));
}

AppleMenuOverlayServices MacFrontEnd::overlay()
{
    return { *m_windowList, *m_screens, *m_workspaceEvents, *m_pointerMonitor, *m_panels, *m_timers, *m_clock, m_menuBarVisibility.get() };
}

std::string MacFrontEnd::diagnostics() const
{
    auto const system = fromNSString([[NSProcessInfo processInfo] operatingSystemVersionString]);
    auto const screens = std::to_string([[NSScreen screens] count]);
    return "macOS " + system + "\nModel: " + systemText("hw.model") + "\nScreens: " + screens
        + "\nMenu bar visibility: " + (m_menuBarVisibility ? "told by the window server" : "not told") + "\n";
}

ZantheVellApp::Platform MacFrontEnd::platform()
{
    return {
        *m_defaults,
        *m_resources,
        m_files,
        *m_bookmarks,
        *m_aliases,
        makeFolderReader(),
        *m_clock,
        *m_timers,
        *m_tasks, //
        *m_application,
        *m_alerts,
        *m_modifierKeys,
        *m_clipboard,
        *m_workspace,
        *m_desktop,
        *m_computer,
        *m_sessionEvents,
        *m_scripts,
        makeToolRunner(), //
        *m_text,
        *m_icons,
        *m_recentFiles,
        *m_runningApplications,
        *m_volumes,
        *m_recentServers,
        *m_networkInterfaces,
        *m_settingsPanes, //
        *m_hotkeys,
        *m_keyboardLayout,
        *m_statusBar,
        *m_menuHost,
        overlay(),
        *m_settingsWindow, //
        *m_installation,
        *m_loginService,
        *m_notesWindows,
        *m_userNotifications,
        makeUpdateEngine,
        *m_filePanels,
        SettingsWording::macOS(),
        [] { return std::nullopt; },
        [this] { return diagnostics(); },
        ZantheVellApp::Platform::LastResort::dockIcon, //
        bundleOfThisProgram(),
        processEnvironment(),
        homeFolder().path(),
        itemsFolder(),
        backupsFolder(),
        [this](auto use) { listApplications(std::move(use)); },
        m_permissions.get(),
        [this] { [NSApp setServicesProvider:m_services]; },
    };
}

} // namespace zv
