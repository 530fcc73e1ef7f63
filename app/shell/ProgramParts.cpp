#include "app/shell/ProgramParts.h"

#include "app/doctor/OverlayCheck.h"
#include "app/menubar/AppleMenuOverlayController.h"

#include <utility>

namespace zv {

ProgramParts::ProgramParts(Over over)
    : m_over(over)
    , m_loginItem(over.surface.home.loginService)
    , m_updater({ .resources = over.system.files.resources,
          .reminder
          = { .notifications = over.surface.windows.notifications, .application = over.surface.desk.application, .resources = over.system.files.resources },
          .makeEngine = over.surface.home.makeUpdateEngine })
    , m_layout(over.surface.presence.keyboardLayout, m_notifications)
    , m_hotkeys(over.surface.presence.hotkeys, m_layout)
    , m_fileHotkeys({ .tasks = over.system.time.tasks, .reader = over.system.files.folders, .files = over.system.files.disk }, m_hotkeys)
    , m_chosen({ .preferences = over.preferences, .files = over.system.files.disk, .tasks = over.system.time.tasks }, over.system.places.chosenFile)
    , m_menus({ .system = over.system,
          .desk = over.surface.desk,
          .looks = over.surface.looks,
          .preferences = over.preferences,
          .listedFolders = m_fileHotkeys,
          .chosen = &m_chosen,
          .shell = actionShell(),
          .entryShell = entryShell() })
    , m_addToItems(ItemsFolder(over.system.places.itemsFolder, *over.system.files.disk, over.system.files.aliases),
          { .application = over.surface.desk.application, .alerts = over.surface.desk.alerts, .tasks = over.system.time.tasks })
{
    m_over.store.setItemsSink(&m_hotkeys);
}

ProgramParts::~ProgramParts()
{
    m_hotkeys.onTrigger = nullptr;
    m_over.store.setItemsSink(nullptr);
}

MenuActions::Shell ProgramParts::actionShell()
{
    return { .openSettingsWindow = [this] { m_over.settings.open(); },
        .canCheckForUpdates = [this] { return m_updater.canCheckForUpdates(); },
        .checkForUpdates = [this] { m_updater.checkForUpdates(); },
        .chosen = [this](std::string identity) { m_chosen.add(std::move(identity)); } };
}

EntryMenu::Shell ProgramParts::entryShell()
{
    return { .isInMenu = [this](Uuid const& item) { return m_over.store.find(item) != nullptr; },
        .editItem = [this](Uuid const& item) { m_over.settings.openAt(item); },
        .removeItem = [this](Uuid const& item) { settingsModels().editor().remove({ item }); },
        .addToItems = filesDropped() };
}

/// Adds them to the Items folder.
std::function<void(std::vector<Url>)> ProgramParts::filesDropped()
{
    return [this](std::vector<Url> files) { (void)m_addToItems.addToZantheVellItems(std::move(files)); };
}

std::unique_ptr<StatusItemController> ProgramParts::makeStatusItem()
{
    return std::make_unique<StatusItemController>(StatusItemController::Services {
        .system = m_over.system,
        .desk = m_over.surface.desk,
        .presence = m_over.surface.presence,
        .store = m_over.store,
        .preferences = m_over.preferences,
        .menuShortcut = m_over.menuShortcut,
        .builder = m_menus.builder(),
        .lists = m_menus.lists(),
        .icons = m_menus.icons(),
        .commands = m_menus.actions(),
        .layout = m_layout,
        .openingKeys = m_menus.openingKeys(),
        .searchBelow = [this](Menu const& start) { return m_menus.searchBelow(start); },
        .hotkeys = m_hotkeys,
        .fileHotkeys = m_fileHotkeys,
        .notifications = m_notifications,
        .makeOverlay = [this](auto showMenu) { return makeOverlay(std::move(showMenu)); },
        .filesDropped = filesDropped(),
    });
}

std::shared_ptr<void> ProgramParts::makeOverlay(std::function<void(Point)> showMenu)
{
    auto const& seams = m_over.surface.presence.overlay;
    if (!seams)
        return nullptr;
    return std::make_shared<AppleMenuOverlayController>(AppleMenuOverlayServices { .menuBars = seams->menuBars,
                                                            .screens = seams->screens,
                                                            .workspaceEvents = seams->workspaceEvents,
                                                            .pointerMonitor = seams->pointerMonitor,
                                                            .panels = seams->panels,
                                                            .timers = m_over.system.time.timers,
                                                            .clock = m_over.system.time.clock,
                                                            .visibility = seams->visibility,
                                                            .filesDropped = filesDropped() },
        m_over.preferences, std::move(showMenu));
}

SettingsModels& ProgramParts::settingsModels()
{
    if (!m_settingsModels)
        m_settingsModels = std::make_unique<SettingsModels>(settingsServices());
    return *m_settingsModels;
}

SettingsModels::Services ProgramParts::settingsServices()
{
    return {
        .system = m_over.system,
        .surface = m_over.surface,
        .store = m_over.store,
        .preferences = m_over.preferences,
        .menuShortcut = m_over.menuShortcut,
        .hotkeys = m_hotkeys,
        .backups = m_over.backups,
        .loginItem = m_loginItem,
        .updater = m_updater,
        .icons = m_menus.icons(),
        .overlayProblem = [this] { return noteOf(overlayCheck(m_over.surface.presence.overlay ? OverlaySupport::onPanels : OverlaySupport::none)); },
        .fileWasRenamed = [this](Url const& file) { m_fileHotkeys.forget(file); },
        .showReadMe = [this] { m_over.begging.show(); },
        .openSettingsPane = [this](std::string_view pane) { m_menus.actions().openSettingsPane(pane); },
    };
}

} // namespace zv
