#pragma once

#include "app/actions/ActionAlerts.h"
#include "app/actions/EntryMenu.h"
#include "app/actions/MenuActions.h"
#include "app/menu/DynamicMenuProvider.h"
#include "app/menu/DynamicSubmenu.h"
#include "app/menu/FolderListings.h"
#include "app/menu/MenuBuilder.h"
#include "app/menu/MenuIcon.h"
#include "app/menu/MenuSearch.h"
#include "app/menu/OpeningKeys.h"
#include "app/model/ChosenEntries.h"
#include "app/model/KeptEntries.h"
#include "platform/System.h"

namespace zv {

/// Builds the menus and their actions over a system, for the program and its commands. Outlives the
/// menus that it builds. Main thread only.
class Menus {
public:
    /// All references outlive the menus.
    struct Parts {
        System const& system;
        Desk const& desk;
        Looks const& looks;
        Preferences const& preferences;
        ListedFolderSink& listedFolders;
        ChosenEntries* chosen; ///< null where choices are not remembered
        MenuActions::Shell shell;
        EntryMenu::Shell entryShell;
    };

    explicit Menus(Parts parts);
    Menus(Menus const&) = delete;
    Menus& operator=(Menus const&) = delete;

    [[nodiscard]] MenuBuilder const& builder() const { return m_builder; }
    [[nodiscard]] MenuActions& actions() { return m_actions; }
    [[nodiscard]] MenuIcons& icons() { return m_icons; }
    [[nodiscard]] OpeningKeys& openingKeys() { return m_openingKeys; }
    [[nodiscard]] DynamicMenuProvider const& lists() const { return m_lists; }
    /// A search through the submenus below an open menu.
    [[nodiscard]] std::shared_ptr<MenuSearch> searchBelow(Menu const& start) const;

private:
    System const& m_system;
    ChosenEntries* m_chosen;
    LocationServices m_locations;
    AlertConfirmation m_confirmation;
    SessionControl m_session;
    SystemEventsBridge m_scripts;
    MenuActions m_actions;

    KeptEntries m_kept;
    OpeningKeys m_openingKeys;
    FolderListings m_folders;
    DynamicMenuProvider m_lists;
    OwnItems m_ownItems;
    ScriptMenus m_scriptMenus;
    SubmenuSources m_sources;
    MenuIcon m_icons;
    EntryMenu m_entryMenu;
    MenuBuilder m_builder;
};

} // namespace zv
