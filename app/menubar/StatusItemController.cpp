#include "app/menubar/StatusItemController.h"

#include "app/hotkeys/FileHotkeys.h"
#include "app/hotkeys/HotkeyCenter.h"
#include "app/hotkeys/KeyboardLayout.h"
#include "app/menu/DisplayText.h"
#include "app/menu/DynamicMenuProvider.h"
#include "app/menu/MenuBuilder.h"
#include "app/menu/MenuCommands.h"
#include "app/menu/MenuIcon.h"
#include "app/menu/MenuKeyEquivalent.h"
#include "app/menu/OpeningKeys.h"
#include "app/model/Locations.h"
#include "app/model/MenuShortcut.h"
#include "app/model/MenuStore.h"
#include "app/model/Preferences.h"
#include "base/MainThread.h"

namespace zv {

StatusItemController::StatusItemController(Services services)
    : m_services(std::move(services))
    , m_asDelegate(this, [](MenuDelegate*) {})
    , m_menu(makeMenu())
    , m_overlayMenu(makeMenu())
    , m_showsStatusItem { [this] { (void)m_services.preferences.showsStatusItem(); }, &StatusItemController::updateStatusItem }
    , m_prescanDepth { [this] { (void)m_services.preferences.hotkeyPrescanDepth(); }, &StatusItemController::rescanFileHotkeys }
    , m_menuShortcut { [this] { (void)m_services.menuShortcut.value(); }, &StatusItemController::reregisterHotkeys }
{
    assertMainThread();
    wireHotkeys();
    m_appleMenuOverlay = m_services.makeOverlay(m_lifetime.guard([this](Point at) { m_services.presence.menuHost.popUp(m_overlayMenu, at); }));
    observe(m_showsStatusItem);
    observe(m_prescanDepth);
    observe(m_menuShortcut);
    updateStatusItem();
    rescanFileHotkeys();
}

std::shared_ptr<Menu> StatusItemController::makeMenu() const
{
    auto menu = std::make_shared<Menu>();
    menu->delegate = m_asDelegate;
    return menu;
}

void StatusItemController::menuNeedsUpdate(Menu& menu)
{
    assertMainThread();
    auto const& items = m_services.store.items();
    m_services.lists.refresh(items);
    m_services.system.time.tasks.runOnMain(m_lifetime.guard([this] { m_services.hotkeys.retryRefused(); }));
    m_services.builder.buildMenu(menu, items, m_services.openingKeys.option());
    if (auto const problem = m_services.store.saveProblem())
        menu.entries.insert(menu.entries.begin(), { MenuEntry::disabled(displayText(*problem)), MenuEntry::separator() });
}

void StatusItemController::menuDidClose(Menu&)
{
    assertMainThread();
    m_services.icons.emptyCache();
}

/// An action that counts as chosen by a shortcut. Escape alone closes menus, whoever has it as a shortcut.
std::shared_ptr<MenuActionTarget> StatusItemController::targetForKey(Menu const& menu, KeyPress const& press)
{
    assertMainThread();
    bool const closes = press.modifiers == ModifierMask::none && press.keyCode == keyCodeOfNamedKey("esc");
    auto const* entry = closes ? nullptr : entryWithShortcut(menu, m_services.layout.keyEquivalents(press), press.modifiers);
    if (!entry)
        return nullptr;
    return std::make_shared<MenuActionTarget>(
        m_lifetime.guard([this, target = entry->target] { m_services.commands.byShortcut([&target] { target->invoke(); }); }));
}

void StatusItemController::updateStatusItem()
{
    assertMainThread();
    if (!m_services.preferences.showsStatusItem()) {
        m_statusItem.reset();
        return;
    }
    if (m_statusItem)
        return;
    m_statusItem = m_services.presence.statusBar.add("Zanthe Vell", m_menu, m_services.filesDropped);
    m_statusItem->onRemoved = [this] { m_services.preferences.setShowsStatusItem(false); };
}

void StatusItemController::rescanFileHotkeys()
{
    assertMainThread();
    auto const hidden = m_services.preferences.showHiddenFiles() ? HiddenFiles::included : HiddenFiles::skipped;
    auto const& system = m_services.system;
    auto const folders = [&] { return foldersToPrescan(m_services.store.items(), system.places.itemsFolder, locationsOf(system)); };
    m_services.fileHotkeys.prescan(folders, m_services.preferences.hotkeyPrescanDepth(), hidden);
}

void StatusItemController::openMenuByKey()
{
    assertMainThread();
    popUpByKey(m_overlayMenu);
}

void StatusItemController::handleHotkey(Uuid const& item)
{
    assertMainThread();
    auto const* const found = m_services.store.find(item);
    if (!found)
        return;
    auto const performed = *found; // a copy, as performing may change the tree
    auto entry = m_services.builder.entryFor(performed);
    if (!entry.submenu) {
        m_services.commands.byShortcut([&] { m_services.commands.perform(performed); });
        return;
    }
    m_services.lists.refresh({ performed });
    m_openedByKey = std::move(entry);
    m_openedByKey.submenu->keyDelegate = m_asDelegate;
    popUpByKey(m_openedByKey.submenu);
}

/// Forgets the icons first: a submenu that opens alone does not tell when it closes.
void StatusItemController::popUpByKey(std::shared_ptr<Menu> const& menu)
{
    m_services.icons.emptyCache();
    m_services.openingKeys.expectShortcut();
    m_services.presence.menuHost.popUpByKey(menu);
}

void StatusItemController::handleHotkey(Url const& file)
{
    assertMainThread();
    m_services.system.session.workspace.open(file);
}

void StatusItemController::wireHotkeys()
{
    m_services.hotkeys.onTrigger = m_lifetime.guard([this](HotkeyTarget const& target) {
        if (target.isMenu())
            openMenuByKey();
        else if (auto const* item = target.itemID())
            handleHotkey(*item);
        else if (auto const* file = target.fileURL())
            handleHotkey(*file);
    });
    reregisterHotkeys();
    m_layoutChanges = m_services.notifications.observe(KeyboardLayout::changedNotification, m_lifetime.guard([this] { reregisterHotkeys(); }));
}

void StatusItemController::reregisterHotkeys()
{
    m_services.hotkeys.setMenuShortcut(m_services.menuShortcut.value());
    m_services.hotkeys.setMenuItems(m_services.store.items());
    m_services.hotkeys.reregister();
}

void StatusItemController::observe(Watch& watch)
{
    auto observeAgain = m_lifetime.guard([this, &watch] {
        observe(watch);
        (this->*watch.update)();
    });
    watch.tracking = withObservationTracking(watch.read, m_lifetime.guard([this, observeAgain] { m_services.system.time.tasks.runOnMain(observeAgain); }));
}

} // namespace zv
