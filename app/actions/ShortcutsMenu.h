#pragma once

#include "app/actions/ListCommands.h"
#include "app/actions/ShortcutsCache.h"
#include "app/menu/DynamicMenuProvider.h"

namespace zv {

/// The submenu of the user's shortcuts: a submenu a folder, then those in no folder. It
/// shows what the cache holds when it opens. Main thread only.
class ShortcutsMenu : public SubmenuFiller {
public:
    ShortcutsMenu(ShortcutsCache& cache, ShortcutCommands& commands)
        : m_cache(cache)
        , m_commands(commands)
    {
    }
    void fill(Menu& menu) override;

private:
    void fillWhenLoaded(Menu& menu);
    void show(Menu& menu, ShortcutsLibrary const& library) const;
    [[nodiscard]] MenuEntry entryFor(Shortcut const& shortcut) const;
    [[nodiscard]] MenuEntry entryFor(ShortcutFolder const& folder) const;

    ShortcutsCache& m_cache;
    ShortcutCommands& m_commands;
    Lifetime m_lifetime;
};

} // namespace zv
