#pragma once

#include "app/menu/Menu.h"
#include "app/model/MenuItem.h"
#include "base/Lifetime.h"
#include "base/Notifications.h"
#include "base/Observation.h"
#include "platform/System.h"

#include <functional>
#include <memory>
#include <vector>

namespace zv {

class DynamicMenuProvider;
class FileHotkeys;
class HotkeyCenter;
class KeyboardLayout;
class MenuBuilder;
class MenuCommands;
class MenuIcons;
class MenuShortcut;
class MenuStore;
class OpeningKeys;
class Preferences;

/// Owns the two menus of the user's items: the status icon's and the overlay's. Receives the global
/// hotkeys. Main thread only.
class StatusItemController : public MenuDelegate {
public:
    /// Makes the overlay, which calls back with the point where the menu opens; the returned object
    /// keeps it alive.
    using OverlayFactory = std::function<std::shared_ptr<void>(std::function<void(Point)> showMenu)>;

    struct Services {
        System const& system;
        Desk const& desk;
        Presence const& presence;
        MenuStore& store;
        Preferences& preferences;
        MenuShortcut const& menuShortcut;
        MenuBuilder const& builder;
        DynamicMenuProvider const& lists;
        MenuIcons& icons;
        MenuCommands& commands;
        KeyboardLayout& layout;
        OpeningKeys& openingKeys;
        std::function<std::shared_ptr<MenuSearch>(Menu const& start)> searchBelow;
        HotkeyCenter& hotkeys;
        FileHotkeys& fileHotkeys;
        Notifications& notifications; ///< announces changes of the keyboard layout
        OverlayFactory makeOverlay;
        std::function<void(std::vector<Url>)> filesDropped; ///< on the icon
    };

    /// All services outlive the controller.
    explicit StatusItemController(Services services);
    StatusItemController(StatusItemController const&) = delete;
    StatusItemController& operator=(StatusItemController const&) = delete;

    void menuNeedsUpdate(Menu& menu) override;
    void menuDidClose(Menu& menu) override;
    std::shared_ptr<MenuActionTarget> targetForKey(Menu const& menu, KeyPress const& press) override;
    std::shared_ptr<MenuSearch> searchBelow(Menu const& start) override { return m_services.searchBelow(start); }

    /// Creates or removes the status icon, following the preference.
    void updateStatusItem();
    /// Scans file names for shortcuts, off the main thread; does nothing at a depth below 1.
    void rescanFileHotkeys();
    /// Opens the menu, its first entry selected.
    void openMenuByKey();
    /// Performs the item as if chosen, or opens its submenu; does nothing if it has been deleted.
    void handleHotkey(Uuid const& item);
    void handleHotkey(Url const& file);

    [[nodiscard]] std::shared_ptr<Menu> const& menu() const { return m_menu; }
    [[nodiscard]] std::shared_ptr<Menu> const& overlayMenu() const { return m_overlayMenu; }

private:
    /// A preference, and the update that a change of it needs.
    struct Watch {
        std::function<void()> read;
        void (StatusItemController::*update)();
        Observation tracking {};
    };

    [[nodiscard]] std::shared_ptr<Menu> makeMenu() const;
    void popUpByKey(std::shared_ptr<Menu> const& menu);
    void wireHotkeys();
    void reregisterHotkeys();
    void observe(Watch& watch);

    Services m_services;
    std::shared_ptr<MenuDelegate> m_asDelegate; ///< the menus' delegate, held weakly by them
    std::shared_ptr<Menu> m_menu;
    std::unique_ptr<StatusItem> m_statusItem;
    NotificationToken m_layoutChanges;
    std::shared_ptr<Menu> m_overlayMenu;
    MenuEntry m_openedByKey; ///< keeps the last submenu that a shortcut opened
    std::shared_ptr<void> m_appleMenuOverlay;
    Watch m_showsStatusItem;
    Watch m_prescanDepth;
    Watch m_menuShortcut;
    Lifetime m_lifetime;
};

} // namespace zv
