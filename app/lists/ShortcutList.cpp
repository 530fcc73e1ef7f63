#include "app/lists/AllLists.h"
#include "app/lists/ShortcutsCache.h"
#include "app/menu/MenuIcon.h"
#include "base/Translation.h"

#include <memory>
#include <utility>

namespace zv {

namespace {

constexpr Sentence noShortcutsTitle = mark("No Shortcuts");

MenuEntry unavailableItem(std::string const& reason)
{
    auto item = MenuEntry::disabled(tr("Shortcuts Unavailable"));
    item.toolTip = reason;
    return item;
}

/// The user's shortcuts: a submenu a folder, then those in no folder. Only the first opening waits;
/// later ones show the last known list.
class ShortcutList : public DynamicList {
public:
    ShortcutList(ShortcutsProvider provider, Clock const& clock, Tasks& tasks, ShortcutCommands& commands)
        : m_commands(commands)
        , m_cache(std::move(provider), clock, tasks)
    {
    }
    MenuItemKind::Case kind() const override { return MenuItemKind::shortcuts; }
    ImageRef icon(MenuIcon& icons) const override { return icons.systemIcon(SystemIcon::shortcuts); }
    std::string emptyTitle() const override { return tr(noShortcutsTitle); }
    void fill(Done done) override
    {
        if (auto const* const known = m_cache.library())
            return done(itemsFor(*known));
        m_cache.whenLoaded([this, done = std::move(done)] { done(itemsFor(*m_cache.library())); });
        m_cache.refresh();
    }
    void refresh() override { m_cache.refresh(); }

private:
    [[nodiscard]] std::vector<MenuEntry> itemsFor(ShortcutsLibrary const& library) const
    {
        std::vector<MenuEntry> items;
        for (auto const& folder : library.folders)
            items.push_back(itemFor(folder));
        for (auto const& shortcut : library.ungrouped)
            items.push_back(itemFor(shortcut));
        if (library.failure && !items.empty())
            items.push_back(MenuEntry::separator());
        if (library.failure)
            items.push_back(unavailableItem(*library.failure));
        return items;
    }
    [[nodiscard]] MenuEntry itemFor(Shortcut const& shortcut) const
    {
        MenuEntry item;
        item.title = shortcut.name;
        item.target = std::make_shared<MenuActionTarget>([&commands = m_commands, shortcut] { commands.runShortcut(shortcut.id, shortcut.name); });
        item.representedObject = item.target;
        return item;
    }
    [[nodiscard]] MenuEntry itemFor(ShortcutFolder const& folder) const
    {
        MenuEntry item;
        item.title = folder.name;
        item.submenu = std::make_shared<Menu>(folder.name);
        for (auto const& shortcut : folder.shortcuts)
            item.submenu->entries.push_back(itemFor(shortcut));
        if (folder.shortcuts.empty())
            item.submenu->entries.push_back(MenuEntry::disabled(tr(noShortcutsTitle)));
        return item;
    }

    ShortcutCommands& m_commands;
    ShortcutsCache m_cache;
};

} // namespace

void addShortcutList(DynamicMenuProvider& lists, ListServices const& services)
{
    lists.add(std::make_unique<ShortcutList>(ShortcutsProvider(services.tools), services.clock, services.tasks, services.shortcutCommands));
}

} // namespace zv
