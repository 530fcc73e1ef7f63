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
class MenuBuilder;
class MenuCommands;
class MenuIcons;
class MenuStore;
class Preferences;

/// Owns the two menus that show the user's items: the status icon's and the one that pops
/// up from the overlay. Receives the global hotkeys. Main thread only.
class StatusItemController : public MenuDelegate {
public:
    /// Makes the overlay, which calls back with the point where the menu belongs; the
    /// answer keeps it alive.
    using OverlayFactory = std::function<std::shared_ptr<void>(std::function<void(Point)> showMenu)>;

    struct Services {
        System const& system;
        Desk const& desk;
        Presence const& presence;
        MenuStore& store;
        Preferences& preferences;
        MenuBuilder const& builder;
        DynamicMenuProvider const& lists;
        MenuIcons& icons;
        MenuCommands& commands;
        HotkeyCenter& hotkeys;
        FileHotkeys& fileHotkeys;
        Notifications& notifications; ///< tell when the keyboard's layout has changed
        OverlayFactory makeOverlay;
    };

    /// All services outlive the controller.
    explicit StatusItemController(Services services);
    StatusItemController(StatusItemController const&) = delete;
    StatusItemController& operator=(StatusItemController const&) = delete;

    void menuNeedsUpdate(Menu& menu) override;
    void menuDidClose(Menu& menu) override;

    /// Creates or removes the status icon as the preference asks.
    void updateStatusItem();
    /// Looks for shortcuts in file names, off the main thread; nothing at a depth below 1.
    void rescanFileHotkeys();
    /// Performs the item as if it were chosen; nothing when it was deleted meanwhile.
    void handleHotkey(Uuid const& item);
    void handleHotkey(Url const& file);

    [[nodiscard]] std::shared_ptr<Menu> const& menu() const { return m_menu; }
    [[nodiscard]] std::shared_ptr<Menu> const& overlayMenu() const { return m_overlayMenu; }

private:
    /// A preference, and what a change of it calls for.
    struct Watch {
        std::function<void()> read;
        void (StatusItemController::*update)();
        Observation tracking {};
    };

    [[nodiscard]] std::shared_ptr<Menu> makeMenu() const;
    void wireHotkeys();
    void reregisterHotkeys();
    void observe(Watch& watch);

    Services m_services;
    std::shared_ptr<MenuDelegate> m_asDelegate; ///< what the menus hold weakly
    std::shared_ptr<Menu> m_menu;
    std::unique_ptr<StatusItem> m_statusItem;
    NotificationToken m_layoutChanges;
    std::shared_ptr<Menu> m_overlayMenu;
    std::shared_ptr<void> m_appleMenuOverlay;
    Watch m_showsStatusItem;
    Watch m_prescanDepth;
    Lifetime m_lifetime;
};

} // namespace zv
