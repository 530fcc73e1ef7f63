#pragma once

#include "app/menu/Menu.h"
#include "platform/linux/tray/BusMenuTypes.h"

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace zv {

/// A Menu as a menu on the bus sees it: entries by number, submenus filled only when they
/// are about to show. Numbers are never used again, so that a click on what is gone finds
/// nothing wrong. Main thread only.
class BusMenuTree {
public:
    static constexpr int rootID = 0;

    explicit BusMenuTree(std::shared_ptr<Menu> menu);
    ~BusMenuTree();
    BusMenuTree(BusMenuTree const&) = delete;
    BusMenuTree& operator=(BusMenuTree const&) = delete;

    /// Fills the submenu (the root is one) that is about to show. False when nothing changed.
    bool aboutToShow(int id);
    void closed(int id);
    [[nodiscard]] bool contains(int id) const { return find(id) != nullptr; }
    /// What choosing the entry does; null for nothing.
    [[nodiscard]] std::shared_ptr<MenuActionTarget> target(int id) const;

    /// `depth` levels below the entry, all of them when negative; `names` of the properties
    /// wanted, all when empty. Fills the root when it never was, as no menu is ever empty.
    [[nodiscard]] BusMenuLayout layout(int id, int depth, QStringList const& names);
    [[nodiscard]] QVariantMap properties(int id, QStringList const& names) const;

    /// Called when a submenu changed later than it was opened.
    std::function<void(int)> onChanged;

private:
    struct Node {
        MenuEntry entry;
        std::shared_ptr<Menu> menu; ///< of a submenu and of the root
        std::vector<int> children {};
    };

    [[nodiscard]] Node const* find(int id) const;
    int add(MenuEntry const& entry);
    void mirror(int id);
    void addReason(int id, std::string const& reason);
    void drop(std::vector<int> const& ids);
    void follow(int id);

    std::unordered_map<int, Node> m_nodes;
    std::unordered_map<int, Node> m_replaced; ///< what the last change took away: a host may still show it
    int m_nextID = 1;
    bool m_isFilled = false;
};

} // namespace zv
