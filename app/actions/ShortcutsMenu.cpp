#include "app/actions/ShortcutsMenu.h"

#include "base/MainThread.h"

#include <memory>
#include <utility>

namespace zv {

namespace {

MenuEntry unavailableEntry(std::string const& reason)
{
    auto entry = MenuEntry::disabled("Shortcuts Unavailable");
    entry.toolTip = reason;
    return entry;
}

} // namespace

void ShortcutsMenu::fill(Menu& menu)
{
    assertMainThread();
    if (auto const* const library = m_cache.library())
        return show(menu, *library);
    fillWhenLoaded(menu);
}

/// Only the very first opening waits; a later one shows the last known list at once.
void ShortcutsMenu::fillWhenLoaded(Menu& menu)
{
    menu.entries = { MenuEntry::disabled("Loading…") };
    m_cache.whenLoaded(m_lifetime.guard([this, weak = menu.weak_from_this()] {
        auto const opened = weak.lock();
        if (!opened)
            return;
        show(*opened, *m_cache.library());
        opened->didRefill();
    }));
    m_cache.refresh();
}

void ShortcutsMenu::show(Menu& menu, ShortcutsLibrary const& library) const
{
    menu.entries.clear();
    for (auto const& folder : library.folders)
        menu.entries.push_back(entryFor(folder));
    for (auto const& shortcut : library.ungrouped)
        menu.entries.push_back(entryFor(shortcut));
    if (library.failure && !menu.entries.empty())
        menu.entries.push_back(MenuEntry::separator());
    if (library.failure)
        menu.entries.push_back(unavailableEntry(*library.failure));
    if (menu.entries.empty())
        menu.entries.push_back(MenuEntry::disabled("No Shortcuts"));
}

MenuEntry ShortcutsMenu::entryFor(Shortcut const& shortcut) const
{
    MenuEntry entry;
    entry.title = shortcut.name;
    entry.target = std::make_shared<MenuActionTarget>([&commands = m_commands, shortcut] { commands.runShortcut(shortcut.id, shortcut.name); });
    entry.representedObject = entry.target;
    return entry;
}

MenuEntry ShortcutsMenu::entryFor(ShortcutFolder const& folder) const
{
    auto const submenu = std::make_shared<Menu>(folder.name);
    for (auto const& shortcut : folder.shortcuts)
        submenu->entries.push_back(entryFor(shortcut));
    if (folder.shortcuts.empty())
        submenu->entries.push_back(MenuEntry::disabled("No Shortcuts"));
    MenuEntry entry;
    entry.title = folder.name;
    entry.submenu = submenu;
    return entry;
}

} // namespace zv
