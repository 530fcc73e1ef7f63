#pragma once

#include "app/menu/Menu.h"
#include "app/menubar/StatusItemNeighbours.h"
#include "base/Lifetime.h"
#include "base/Observation.h"
#include "platform/menubar/MenuHost.h"
#include "platform/menubar/StatusBar.h"

#include <functional>
#include <memory>

namespace zv {

class MenuCommands;
class MenuIcons;
class MenuStore;
class Preferences;
class Tasks;
class Workspace;

/// Owns the two menus that show the user's items: the status icon's and the one that pops
/// up from the overlay. Receives the global hotkeys. Main thread only.
class StatusItemController : public MenuDelegate {
public:
    /// Makes the overlay, which calls back with the point where the menu belongs; the
    /// answer keeps it alive.
    using OverlayFactory = std::function<std::shared_ptr<void>(std::function<void(Point)> showMenu)>;

    struct Services {
        MenuStore& store;
        Preferences& preferences;
        MenuFiller& filler;
        ListsRefresher& lists;
        MenuIcons& icons;
        MenuCommands& commands;
        HotkeyPasses& hotkeys;
        KeyboardLayoutChanges& layout;
        FileHotkeyPrescan& fileHotkeys;
        ModifierKeys const& modifiers;
        StatusBar& statusBar;
        MenuHost& menuHost;
        Workspace& workspace;
        Tasks& tasks;
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
    std::shared_ptr<void> m_layoutChanges;
    std::shared_ptr<Menu> m_overlayMenu;
    std::shared_ptr<void> m_appleMenuOverlay;
    Watch m_showsStatusItem;
    Watch m_prescanDepth;
    Lifetime m_lifetime;
};

} // namespace zv
