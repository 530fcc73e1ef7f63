#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace zv {

class EntryAction;
class Menu;
class MenuWindow;
struct MenuEntry;

/// The entries of a menu as actions of its window, an action an entry. After the menu closes, the
/// actions keep their looks for the next opening, when most menus look the same. Slow pictures
/// come after the first painting, a few in each turn.
class MenuMirror {
public:
    /// The window owns the actions and the mirror.
    explicit MenuMirror(MenuWindow& window);

    void show(Menu const& menu);
    /// Releases the entries' targets and represented objects.
    void forget();
    void dropAll();

    [[nodiscard]] std::vector<EntryAction*> const& actions() const { return m_actions; }
    /// Whether the current change of an action leaves the layout as it is.
    [[nodiscard]] bool changesQuietly() const { return m_changesQuietly; }

    [[nodiscard]] bool awaitsIcons() const { return !m_awaitingIcons.empty(); }
    void fetchIconsSoon();
    /// As many as a moment allows.
    void fetchIcons();
    void dropAwaitedIcons() { m_awaitingIcons.clear(); }

private:
    void add(std::span<MenuEntry const> entries);
    void dropFrom(std::size_t index);
    void show(EntryAction& action, MenuEntry const& entry);
    void giveSubmenu(EntryAction& action, std::shared_ptr<Menu> const& menu);
    void takeSubmenu(EntryAction& action);
    void renewSubmenu(EntryAction& action);

    MenuWindow& m_window;
    std::vector<EntryAction*> m_actions; ///< in the order of the entries
    std::vector<EntryAction*> m_awaitingIcons;
    bool m_changesQuietly = false;
    bool m_fetchesSoon = false;
};

} // namespace zv
