#pragma once

#include "app/actions/FileDrop.h"
#include "app/menu/DynamicEntry.h"
#include "app/menu/EntryMenus.h"
#include "app/menu/MenuCommands.h"
#include "app/menu/MenuIcon.h"
#include "app/model/KeptEntries.h"
#include "app/model/Preferences.h"
#include "base/Lifetime.h"
#include "platform/System.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

/// The entries' own menus, each made of the rows of one table, and what the rows do. Main thread only.
class EntryMenu : public EntryMenus {
public:
    /// Calls to the rest of the program; where one is empty, its command is left out.
    struct Shell {
        std::function<bool(Uuid const&)> isInMenu; ///< whether the user's menu has that item
        std::function<void(Uuid const&)> editItem;
        std::function<void(Uuid const&)> removeItem;
        std::function<void(std::vector<Url>)> addToItems;
    };
    /// All references outlive this, and this outlives the menus.
    struct Services {
        System const& system;
        Desk const& desk;
        Preferences const& preferences;
        KeptEntries& kept;
        MenuCommands& commands;
        MenuIcons& icons;
        Shell shell;
    };

    explicit EntryMenu(Services services);

    [[nodiscard]] MenuEntry menuOf(MenuEntry const& entry) const override;
    [[nodiscard]] std::shared_ptr<MenuActionTarget> openingOf(EntrySubject const& subject) const override;
    [[nodiscard]] std::optional<Url> fileOf(EntrySubject const& subject) const override;
    [[nodiscard]] std::optional<Url> folderOf(EntrySubject const& subject) const override;
    void drop(std::vector<Url> const& files, Url const& folder, FileTransfer how) const override { m_drop.put(files, folder, how); }
    void addHead(Menu& submenu, EntrySubject const& subject) const override;

    struct Row;

private:
    class Filling;

    [[nodiscard]] std::vector<MenuEntry> rowsFor(EntrySubject const& subject) const;
    [[nodiscard]] bool applies(Row const& row, EntrySubject const& subject) const;
    [[nodiscard]] MenuEntry entryFor(Row const& row, EntrySubject const& subject) const;
    void showApplications(Menu& menu, Url const& file, std::vector<InstalledApplication> const& found) const;
    [[nodiscard]] MenuEntry openWithEntry(std::string title, EntrySubject const& subject) const;

    void open(EntrySubject const& subject) const;
    void reveal(EntrySubject const& subject) const;
    void openTerminal(EntrySubject const& subject) const;
    void copyPath(EntrySubject const& subject) const;
    void copy(EntrySubject const& subject) const;
    void addToItems(EntrySubject const& subject) const;
    void moveToTrash(EntrySubject const& subject) const;
    void bringToFront(EntrySubject const& subject) const;
    void quit(EntrySubject const& subject) const;
    void keep(EntrySubject const& subject) const;
    void edit(EntrySubject const& subject) const;
    void remove(EntrySubject const& subject) const;
    [[nodiscard]] bool holdsTheItemsFolder(Url const& file) const;
    void present(Alert const& alert) const;

    static Row const rows[];

    Services m_services;
    mutable FileDrop m_drop;
    Lifetime m_lifetime;
};

} // namespace zv
