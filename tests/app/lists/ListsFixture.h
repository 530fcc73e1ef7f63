#pragma once

#include "app/lists/AllLists.h"
#include "tests/fakes/FakeMenuServices.h"
#include "tests/fakes/FakeSystem.h"

#include <string>
#include <utility>
#include <vector>

namespace zv {

/// All lists over a machine in memory.
struct ListsFixture : fakes::FakeSystem, ShortcutCommands, LocationCommands {
    void runShortcut(std::string const& id, std::string const& name) override { chosen.push_back(id + "|" + name); }
    void selectLocation(std::string const& id, std::string const& name) override { chosen.push_back(id + "|" + name); }

    Preferences preferences { defaults };
    KeptEntries kept { defaults };
    FolderListings listings { folders, time };
    fakes::FakeListedFolders listedFolders;
    System machine = system();
    DynamicMenuProvider lists = allLists({ .preferences = preferences,
        .kept = kept,
        .folders = listings,
        .files = files,
        .itemsFolder = places.itemsFolder,
        .listedFolders = listedFolders,
        .seams = machine.lists,
        .tools = tools,
        .clock = time,
        .tasks = time,
        .shortcutCommands = *this,
        .locationCommands = *this });
    std::vector<std::string> chosen;

    /// The entries of the list, once they have arrived.
    template <class Item> std::vector<Item> shown(MenuItemKind::Case kind)
    {
        std::vector<Item> items;
        lists.listOf(kind)->fill([&items](ListContent content) { items = std::get<std::vector<Item>>(std::move(content)); });
        time.runTasks();
        return items;
    }
    std::vector<DynamicEntry> entries(MenuItemKind::Case kind) { return shown<DynamicEntry>(kind); }
};

template <class Item> std::vector<std::string> titlesOf(std::vector<Item> const& items)
{
    std::vector<std::string> titles;
    for (auto const& item : items)
        titles.push_back(item.title);
    return titles;
}

} // namespace zv
