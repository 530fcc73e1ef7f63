#pragma once

#include "app/actions/ActionAlerts.h"
#include "app/actions/LocationsMenu.h"
#include "app/actions/MenuActions.h"
#include "app/actions/ShortcutsMenu.h"
#include "app/menu/DynamicMenuProvider.h"
#include "app/menu/DynamicSubmenu.h"
#include "app/menu/FolderListings.h"
#include "app/menu/MenuBuilder.h"
#include "app/menu/MenuIcon.h"
#include "app/menu/RecentItemsCache.h"
#include "app/menu/RecentItemsProvider.h"
#include "platform/System.h"

namespace zv {

/// Menus and what their entries do, put together over a system; for the program and for its
/// commands alike. The menus that are built live shorter. Main thread only.
class Menus {
public:
    /// All of it outlives the menus.
    struct Parts {
        System const& system;
        Desk const& desk;
        Looks const& looks;
        Preferences const& preferences;
        ListedFolderSink& listedFolders;
        MenuActions::Shell shell;
    };

    explicit Menus(Parts parts);
    Menus(Menus const&) = delete;
    Menus& operator=(Menus const&) = delete;

    [[nodiscard]] MenuBuilder const& builder() const { return m_builder; }
    [[nodiscard]] MenuActions& actions() { return m_actions; }
    [[nodiscard]] MenuIcons& icons() { return m_icons; }
    /// Starts the queries that the lists among these items will show.
    void refreshLists(std::vector<MenuItem> const& items);

private:
    [[nodiscard]] DynamicLists lists();

    LocationServices m_locations;
    AlertConfirmation m_confirmation;
    SessionControl m_session;
    SystemEventsBridge m_scripts;
    MenuActions m_actions;

    FolderListings m_folders;
    DynamicMenuProvider m_machineLists;
    RecentItemsProvider m_recentItemsProvider;
    RecentItemsCache m_recentItems;
    ShortcutsCache m_shortcuts;
    ShortcutsMenu m_shortcutsMenu;
    LocationsMenu m_networkLocationsMenu;
    DynamicLists m_lists;

    SubmenuSources m_sources;
    MenuIcon m_icons;
    MenuBuilder m_builder;
};

} // namespace zv
