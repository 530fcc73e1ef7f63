#import "platform/macos/MacFrontEnd.h"

#import "platform/macos/Conversions.h"
#import "platform/macos/ServicesProvider.h"
#import "platform/macos/SystemValues.h"

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

Url homeFolder() { return fromNSURL([[NSFileManager defaultManager] homeDirectoryForCurrentUser]); }

} // namespace

MacFrontEnd::MacFrontEnd()
    : m_settingsWindow(makeSettingsWindow([this]() -> SettingsModels& { return m_app->settingsModels(); }))
    , m_app(std::make_unique<ZantheVellApp>(platform()))
    , m_services([[ZVServicesProvider alloc] initWithFunction:[this](std::vector<Url> files) { return m_app->addFiles(std::move(files)); }])
{
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
    auto const home = homeFolder();
    auto const library = home.appending("Library");
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
        *m_metadata,
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
        fromNSURL([[NSBundle mainBundle] bundleURL]),
        processEnvironment(),
        home.path(),
        library.appending("Zanthe Vell Items"),
        library.appending("Application Support").appending("Zanthe Vell").appending("Backups"),
        {}, // the palette names no applications
        m_permissions.get(),
        [this] { [NSApp setServicesProvider:m_services]; },
    };
}

} // namespace zv
