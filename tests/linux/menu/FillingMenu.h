#pragma once

#include "app/menu/MenuKeyEquivalent.h"

#include <memory>
#include <string>
#include <vector>

namespace zv {

/// A menu that fills itself each time it opens, and counts how often.
struct FillingMenu : MenuDelegate {
    std::vector<MenuEntry> next;
    int updates = 0;
    int closings = 0;
    std::shared_ptr<Menu> menu = std::make_shared<Menu>();

    static std::shared_ptr<FillingMenu> make(std::vector<MenuEntry> entries)
    {
        auto filling = std::make_shared<FillingMenu>();
        filling->next = std::move(entries);
        filling->menu->delegate = filling;
        filling->menu->entries = { MenuEntry::disabled("Loading…") };
        return filling;
    }
    void menuNeedsUpdate(Menu& updated) override
    {
        ++updates;
        updated.entries = next;
    }
    void menuDidClose(Menu&) override { ++closings; }
    std::shared_ptr<MenuActionTarget> targetForKey(Menu const& asked, KeyPress const& press) override
    {
        std::string const keys[] = { press.charactersIgnoringModifiers };
        auto const* entry = entryWithShortcut(asked, keys, press.modifiers);
        return entry ? entry->target : nullptr;
    }
};

inline MenuEntry leaf(
    std::string title, std::function<void()> run = [] {})
{
    MenuEntry entry;
    entry.title = std::move(title);
    entry.target = std::make_shared<MenuActionTarget>(std::move(run));
    return entry;
}

inline MenuEntry branch(std::string title, std::shared_ptr<FillingMenu> const& filling)
{
    MenuEntry entry;
    entry.title = std::move(title);
    entry.submenu = filling->menu;
    entry.representedObject = filling;
    return entry;
}

} // namespace zv
