#pragma once

#include "app/menu/DynamicEntry.h"
#include "app/menu/Menu.h"
#include "app/model/MenuItem.h"
#include "platform/desk/Image.h"

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <variant>
#include <vector>

namespace zv {

class MenuIcon;

/// What a list shows: entries, of which the submenu takes as many as the user prefers, or items
/// that are made already and shown as they are.
using ListContent = std::variant<std::vector<DynamicEntry>, std::vector<MenuEntry>>;

/// The submenu of one dynamic kind, filled when it opens. app/lists has them, and the recipe for
/// another one. Main thread only.
class DynamicList {
public:
    using Done = std::function<void(ListContent)>;

    virtual ~DynamicList() = default;

    [[nodiscard]] virtual MenuItemKind::Case kind() const = 0;
    /// The picture of the entry that has the submenu; null for none.
    [[nodiscard]] virtual ImageRef icon(MenuIcon& /*icons*/) const { return nullptr; }
    /// The one line of a list without entries.
    [[nodiscard]] virtual std::string_view emptyTitle() const { return "No Items"; }
    /// The line after ten seconds of silence; empty: "Loading…" stays until the list comes.
    [[nodiscard]] virtual std::string_view noResponseTitle() const { return {}; }

    /// Calls `done` exactly once: before it returns when the list is at hand, be it the last known
    /// one, else later, and until then the submenu says "Loading…". `done` may outlive the menu
    /// that it fills; it checks that itself.
    virtual void fill(Done done) = 0;
    /// Told when a menu with an entry of this kind opens: the time to ask for what takes long, so
    /// that it is at hand once the submenu opens.
    virtual void refresh() { }
};

/// The lists of the dynamic kinds. Main thread only.
class DynamicMenuProvider {
public:
    void add(std::unique_ptr<DynamicList> list);
    /// Null for a kind without a list.
    [[nodiscard]] DynamicList* listOf(MenuItemKind const& kind) const;
    /// Refreshes the lists that are among these items, at any depth.
    void refresh(std::vector<MenuItem> const& items) const;

private:
    std::map<MenuItemKind::Case, std::unique_ptr<DynamicList>> m_lists;
};

} // namespace zv
