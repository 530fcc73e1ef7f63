#pragma once

#include "app/menu/DynamicEntry.h"
#include "app/menu/Menu.h"
#include "app/model/MenuItem.h"
#include "base/Translation.h"
#include "platform/desk/Image.h"

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <variant>
#include <vector>

namespace zv {

class MenuIcon;

/// A list's content: entries, of which the submenu takes as many as the user prefers, or finished
/// items, shown as they are.
using ListContent = std::variant<std::vector<DynamicEntry>, std::vector<MenuEntry>>;

/// The submenu of one dynamic kind, filled when it opens. app/lists has them all, and the recipe
/// for a new one. Main thread only.
class DynamicList {
public:
    using Done = std::function<void(ListContent)>;

    virtual ~DynamicList() = default;

    [[nodiscard]] virtual MenuItemKind::Case kind() const = 0;
    /// The icon of the entry that has the submenu; null for none.
    [[nodiscard]] virtual ImageRef icon(MenuIcon& /*icons*/) const { return nullptr; }
    /// The line shown for a list without entries.
    [[nodiscard]] virtual std::string emptyTitle() const { return tr("No Items"); }
    /// The line after ten seconds of silence; empty: "Loading…" stays until the list comes.
    [[nodiscard]] virtual std::string noResponseTitle() const { return {}; }

    /// Calls `done` exactly once: before it returns if a list is at hand, even a cached one, else
    /// later, with "Loading…" shown until then. `done` may outlive the menu that it fills, and
    /// checks that itself.
    virtual void fill(Done done) = 0;
    /// Called when a menu with an entry of this kind opens: starts slow queries early, so that the
    /// list is at hand once the submenu opens.
    virtual void refresh() { }
};

/// The lists of the dynamic kinds. Main thread only.
class DynamicMenuProvider {
public:
    void add(std::unique_ptr<DynamicList> list);
    /// Null for a kind without a list.
    [[nodiscard]] DynamicList* listOf(MenuItemKind const& kind) const;
    /// Refreshes the lists of these items, at any depth.
    void refresh(std::vector<MenuItem> const& items) const;

private:
    std::map<MenuItemKind::Case, std::unique_ptr<DynamicList>> m_lists;
};

} // namespace zv
