#pragma once

#include "app/menu/Menu.h"
#include "platform/linux/tray/BusMenuTypes.h"

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace zv {

/// A Menu in the form of menus on the bus: entries by number, submenus filled only when they are
/// about to show. Numbers are never reused, so that a click on a removed entry hits no other one.
/// Main thread only.
class BusMenuTree {
public:
    static constexpr int rootID = 0;

    explicit BusMenuTree(std::shared_ptr<Menu> menu);
    ~BusMenuTree();
    BusMenuTree(BusMenuTree const&) = delete;
    BusMenuTree& operator=(BusMenuTree const&) = delete;

    /// Fills the submenu, or the root, that is about to show. False when nothing changed.
    bool aboutToShow(int id);
    void closed(int id);
    [[nodiscard]] bool contains(int id) const { return find(id) != nullptr; }
    /// The entry's action; null for none.
    [[nodiscard]] std::shared_ptr<MenuActionTarget> target(int id) const;

    /// The entry with `depth` levels below it, all when negative; `names` selects properties, all
    /// when empty. Fills the root first if it never was, as no menu is ever empty.
    [[nodiscard]] BusMenuLayout layout(int id, int depth, QStringList const& names);
    [[nodiscard]] QVariantMap properties(int id, QStringList const& names) const;

    /// Called when a submenu changes after it was opened.
    std::function<void(int)> onChanged;

private:
    struct Node {
        MenuEntry entry;
        std::shared_ptr<Menu> menu; ///< set for a submenu and the root
        std::vector<int> children {};
    };

    [[nodiscard]] Node const* find(int id) const;
    int add(MenuEntry const& entry);
    void mirror(int id);
    void addReason(int id, std::string const& reason);
    void drop(std::vector<int> const& ids);
    void follow(int id);

    std::unordered_map<int, Node> m_nodes;
    std::unordered_map<int, Node> m_replaced; ///< entries removed by the last change: a host may still show them
    int m_nextID = 1;
    bool m_isFilled = false;
};

} // namespace zv
