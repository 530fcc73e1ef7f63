#pragma once

#include "app/model/FolderChoices.h"
#include "app/model/ItemLibrary.h"
#include "app/model/ItemPicture.h"
#include "app/model/MenuStore.h"
#include "app/settings/MenuTree.h"
#include "base/Observation.h"
#include "base/Result.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zv {

/// An undoable edit: the top-level items that differ, before and after.
struct MenuEdit {
    std::string name; ///< for the Undo command: "Move", "Add Separator" …
    std::size_t index = 0; ///< the items' position in the menu
    std::vector<MenuItem> before;
    std::vector<MenuItem> after;
    std::optional<std::set<Uuid>> selectionAfter; ///< empty: the selection stays
};

/// The menu editor's operations on the store. Reports each change through `onEdit`, also one made
/// elsewhere, so that the window's undo stack leads back over both. Main thread only.
class MenuEditor {
public:
    using Position = menuTree::Position;
    using Ids = std::set<Uuid>;

    struct Services {
        MenuStore& store;
        LocationServices locations;
    };

    explicit MenuEditor(Services services);
    MenuEditor(MenuEditor const&) = delete;
    MenuEditor& operator=(MenuEditor const&) = delete;

    /// Called after the store has taken the edit, but not for undo and redo.
    std::function<void(MenuEdit const&)> onEdit;
    /// Undoes the last edit, as the window's Undo command does. Set by the window.
    std::function<void()> undoLast;

    [[nodiscard]] std::vector<MenuItem> const& items() const { return m_services.store.items(); }

    /// The position after the last selected item: within it if it is an open submenu; the menu's
    /// end if nothing is selected.
    [[nodiscard]] Position positionAfter(Ids const& selection, std::optional<Uuid> const& openSubmenu = std::nullopt) const;

    void addEntry(LibraryEntry const& entry, Position const& position);
    void addSubmenu(Position const& position);
    void addSeparator(Position const& position);
    /// Adds files, folders and applications as items, titled as the system shows them. Returns the
    /// missing ones.
    std::vector<Url> addFiles(std::vector<Url> const& files, Position const& position);

    /// Returns false and changes nothing when an item would land within itself.
    bool move(Ids const& ids, Position const& position);
    /// Moves items one place up among their siblings; several move together.
    bool moveUp(Ids const& ids);
    bool moveDown(Ids const& ids);
    [[nodiscard]] bool canMoveUp(Ids const& ids) const;
    [[nodiscard]] bool canMoveDown(Ids const& ids) const;
    /// Removes items and selects the next remaining one.
    void remove(Ids const& ids);
    void duplicate(Ids const& ids);

    /// The items as drag records, outermost only, for the clipboard and for dragging.
    [[nodiscard]] std::vector<std::string> records(Ids const& ids) const;
    enum class Drop { move, copy };
    /// Inserts dropped or pasted records. Records of this menu are moved if `drop` says so; others
    /// get fresh ids. The failure names the first wrong record; then nothing changes.
    Result<void> drop(std::vector<std::string> const& records, Position const& position, Drop drop);

    /// An empty text removes the title.
    void setTitle(Uuid const& id, std::string const& title);
    void setTarget(Uuid const& id, Url const& target);
    /// The same for an item of the user's own, with its title.
    void setOwnTarget(Uuid const& id, Url const& target, std::string const& title);
    /// An empty depth stands for the preference.
    void setScanDepth(Uuid const& id, std::optional<std::int64_t> depth);
    void setFolderChoices(Uuid const& id, FolderChoices const& choices);
    void setHidden(Uuid const& id, bool isHidden);
    /// None stands for the picture of the item's kind or file.
    void setPicture(Uuid const& id, std::optional<ItemPicture> const& picture);
    void setKeyEquivalent(Uuid const& id, std::optional<KeyEquivalentSpec> const& spec);

    void restoreDefaultMenu();
    /// Replaces the whole menu, by one read from a file or a backup.
    void replaceMenu(std::vector<MenuItem> items, std::string const& editName);

    /// Both tell what to select: what came back or changed.
    Ids undo(MenuEdit const& edit);
    Ids redo(MenuEdit const& edit);

private:
    using Selection = std::optional<Ids>;

    using Keeping = MenuStore::Keeping;

    void commit(std::string name, std::vector<MenuItem> after, Selection selection, Keeping keeping = Keeping::whenDue);
    void add(std::string name, std::vector<MenuItem> added, Position const& position);
    void edit(std::string name, Uuid const& id, std::function<void(MenuItem&)> const& edit);
    bool moveBy(Ids const& ids, int step);
    [[nodiscard]] Ids neighbourOf(Ids const& ids) const;
    [[nodiscard]] std::optional<std::string> titleFor(Url const& file) const;
    [[nodiscard]] MenuStretch put(std::size_t first, std::size_t count, std::vector<MenuItem> items, Keeping keeping = Keeping::whenDue);
    void tell(MenuEdit edit, std::string name, Selection selection);
    [[nodiscard]] MenuEdit takeOver(MenuStretch const& changed);
    void observe();

    Services m_services;
    std::vector<MenuItem> m_known; ///< the menu after the last edit
    bool m_isPutting = false;
    Observation m_observation;
};

} // namespace zv
