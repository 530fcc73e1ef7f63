#pragma once

#include "app/menu/MenuKeyEquivalent.h"
#include "app/menu/MenuSearch.h"

#include <memory>
#include <string>
#include <vector>

namespace zv {

/// A search that a test answers.
struct ToldSearch : MenuSearch {
    void find(std::string text, std::size_t matches) override { asked.push_back(std::move(text) + " " + std::to_string(matches)); }
    void answer(
        std::vector<std::string> const& titles, bool isFinal, std::function<void()> const& run = [] {}) const
    {
        Found found { {}, isFinal };
        for (auto const& title : titles) {
            auto entry = MenuEntry::disabled(title);
            entry.enabled = true;
            entry.target = std::make_shared<MenuActionTarget>(run);
            entry.way = std::make_shared<EntryWay const>(EntryWay { "Way ▸ " + title, "in Way" });
            found.entries.push_back(std::move(entry));
        }
        onFound(std::move(found));
    }
    std::vector<std::string> asked;
};

/// A menu that fills itself each time it opens, and counts how often.
struct FillingMenu : MenuDelegate {
    std::vector<MenuEntry> next;
    int updates = 0;
    int closings = 0;
    std::weak_ptr<ToldSearch> search; ///< the last one, as long as the front end keeps it
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
    std::shared_ptr<MenuSearch> searchBelow(Menu const&) override
    {
        auto const made = std::make_shared<ToldSearch>();
        search = made;
        return made;
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
