#include "app/shell/ZantheVellApp.h"

#include "app/doctor/OverlayCheck.h"
#include "app/hotkeys/HotkeyReport.h"

#include <algorithm>

namespace zv {

ZantheVellApp::ZantheVellApp(Platform platform)
    : m_platform(std::move(platform))
    , m_preferences(m_platform.defaults)
    , m_backups({ *m_platform.files, m_platform.clock }, m_platform.backupsFolder)
    , m_store({ m_platform.defaults, m_platform.resources, locations() })
    , m_begging({ m_platform.defaults, m_platform.resources, m_platform.notesWindows, m_platform.application, m_platform.tasks })
    , m_settings(m_platform.application, m_platform.settingsWindow)
    , m_loginItem(m_platform.loginService)
    , m_updater({ m_platform.resources, { m_platform.userNotifications, m_platform.application, m_platform.resources }, m_platform.makeUpdateEngine })
    , m_layout(m_platform.keyboardLayout, m_notifications)
    , m_hotkeys(m_platform.hotkeys, m_layout)
    , m_fileHotkeys({ m_platform.tasks, m_platform.folders, m_platform.files }, m_hotkeys)
    , m_confirmation(m_platform.application, m_platform.alerts)
    , m_session(m_platform.sessionEvents, m_confirmation)
    , m_scripts(m_platform.scripts, [this] { return m_confirmation.confirmsForceQuit(); })
    , m_actions(actionServices(), ShortcutsProvider(m_platform.tools), NetworkLocations(m_platform.tools), m_platform.itemsFolder, actionShell())
    , m_addToItems(ItemsFolder(m_platform.itemsFolder, *m_platform.files, m_platform.aliases), { m_platform.application, m_platform.alerts, m_platform.tasks })
    , m_menus(menuServices())
    , m_filler(m_menus.builder())
    , m_lists(m_menus.lists())
    , m_hotkeyPasses(m_hotkeys)
    , m_layoutChanges(m_notifications)
    , m_prescan(m_fileHotkeys, m_platform.itemsFolder, locations())
{
    m_store.setBackupSink(&m_backups);
    m_store.setItemsSink(&m_hotkeys);
    m_platform.defaults.onExternalChange = [this](auto const& keys) { settingsChangedElsewhere(keys); };
}

ZantheVellApp::~ZantheVellApp()
{
    m_platform.defaults.onExternalChange = nullptr;
    m_hotkeys.onTrigger = nullptr;
    m_store.setItemsSink(nullptr);
    m_store.setBackupSink(nullptr);
}

AppDelegate::Launch ZantheVellApp::launch()
{
    auto const outcome = m_delegate.applicationDidFinishLaunching();
    bool const hasPresence = m_preferences.showsStatusItem() || m_preferences.replacesAppleMenu();
    if (outcome == AppDelegate::Launch::running && !hasPresence && m_platform.lastResort == Platform::LastResort::settingsAtStart)
        openSettings();
    return outcome;
}

void ZantheVellApp::reopen()
{
    // Before that, there is nothing but the question whether to move.
    if (m_statusItem)
        m_delegate.applicationShouldHandleReopen(false);
    else
        m_platform.application.activate();
}

bool ZantheVellApp::relocateIfNeeded()
{
    Relocation relocation({ m_platform.installation, m_platform.application, m_platform.alerts, m_platform.workspace });
    return relocation.relocateIfNeeded(m_platform.bundle, m_platform.environment);
}

void ZantheVellApp::makeStatusItem() { m_statusItem = std::make_unique<StatusItemController>(statusItemServices()); }

void ZantheVellApp::makeDockIcon()
{
    m_dockIcon = std::make_unique<DockIconController>(DockIconController::Services { m_platform.application, m_preferences, m_platform.tasks });
}

void ZantheVellApp::setServicesProvider()
{
    m_takesFiles = true;
    if (m_platform.provideServices)
        m_platform.provideServices();
}

void ZantheVellApp::startUpdater() { m_updater.start(); }

void ZantheVellApp::showNotesIfDue() { m_begging.showIfDue(m_platform.environment, m_platform.files->isOnReadOnlyVolume(m_platform.bundle)); }

void ZantheVellApp::openSettings() { m_settings.open(); }

SettingsModels& ZantheVellApp::settingsModels()
{
    if (!m_settingsModels)
        m_settingsModels = std::make_unique<SettingsModels>(settingsServices());
    return *m_settingsModels;
}

SettingsModels::Services ZantheVellApp::settingsServices()
{
    return { m_store, m_preferences, m_hotkeys, m_backups, m_loginItem, m_updater, *m_platform.files, locations(), m_platform.resources, m_menus.icons(),
        m_platform.filePanels, m_platform.alerts, m_platform.defaults, m_platform.wording, m_platform.statusItemProblem,
        [this] { return noteOf(overlayCheck(m_platform.overlay ? OverlaySupport::onPanels : OverlaySupport::none)); },
        [this](Url const& url) { m_platform.workspace.reveal(url); }, [this] { m_begging.show(); },
        [this](std::string const& text) { m_platform.clipboard.setText(text); }, m_platform.diagnostics, m_platform.installedApplications,
        m_platform.permissions, [this](std::string_view pane) { m_actions.openSettingsPane(pane); } };
}

MaybeFailure<> ZantheVellApp::addFiles(std::vector<Url> files)
{
    if (!m_takesFiles)
        return "Zanthe Vell is still starting.";
    return m_addToItems.addToZantheVellItems(std::move(files));
}

std::string ZantheVellApp::hotkeyReport() const { return zv::hotkeyReport(m_hotkeys); }

MenuActions::Services ZantheVellApp::actionServices()
{
    return { m_platform.workspace, m_platform.application, m_platform.alerts, m_platform.modifierKeys, m_platform.clipboard, m_platform.runningApplications,
        m_platform.desktop, m_platform.computer, m_session, m_scripts, m_platform.tasks, locations() };
}

MenuActions::Shell ZantheVellApp::actionShell()
{
    return { [this] { openSettings(); }, [this] { return m_updater.canCheckForUpdates(); }, [this] { m_updater.checkForUpdates(); } };
}

MenuAssembly::Services ZantheVellApp::menuServices()
{
    return { m_preferences, locations(), m_platform.resources, m_platform.folders, m_platform.text, m_platform.recentFiles, m_platform.icons, m_actions,
        m_platform.workspace, m_platform.runningApplications, m_platform.volumes, m_platform.recentServers, m_platform.networkInterfaces,
        m_platform.settingsPanes, m_fileHotkeys, m_platform.tools, m_actions, m_actions, m_platform.clock, m_platform.timers, m_platform.tasks,
        m_platform.itemsFolder };
}

StatusItemController::Services ZantheVellApp::statusItemServices()
{
    return { m_store, m_preferences, m_filler, m_lists, m_menus.icons(), m_actions, m_hotkeyPasses, m_layoutChanges, m_prescan, m_platform.modifierKeys,
        m_platform.statusBar, m_platform.menuHost, m_platform.workspace, m_platform.tasks,
        [this](std::function<void(Point)> showMenu) { return makeOverlay(std::move(showMenu)); } };
}

std::shared_ptr<void> ZantheVellApp::makeOverlay(std::function<void(Point)> showMenu)
{
    if (!m_platform.overlay)
        return nullptr;
    return std::make_shared<AppleMenuOverlayController>(*m_platform.overlay, m_preferences, std::move(showMenu));
}

void ZantheVellApp::settingsChangedElsewhere(std::vector<std::string> const& keys)
{
    m_preferences.reload();
    if (std::find(keys.begin(), keys.end(), MenuStore::defaultsKey) != keys.end())
        m_store.reload();
}

} // namespace zv
