#pragma once

#include "app/lists/AllLists.h"
#include "tests/fakes/FakeActions.h"
#include "tests/fakes/FakeFolderReader.h"
#include "tests/fakes/FakeLists.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <string>
#include <utility>
#include <vector>

namespace zv {

/// All lists over a machine in memory.
struct ListsFixture : ShortcutCommands, LocationCommands {
    void runShortcut(std::string const& id, std::string const& name) override { chosen.push_back(id + "|" + name); }
    void selectLocation(std::string const& id, std::string const& name) override { chosen.push_back(id + "|" + name); }

    fakes::FakeUserDefaults defaults;
    Preferences preferences { defaults };
    std::shared_ptr<fakes::FakeFolderReader> folders = std::make_shared<fakes::FakeFolderReader>();
    fakes::FakeTime time;
    FolderListings listings { folders, time };
    fakes::FakeFileSystem files;
    fakes::FakeRecentFiles recentFiles;
    fakes::FakeRunningApplications applications;
    fakes::FakeVolumes volumes;
    fakes::FakeRecentServers servers;
    fakes::FakeNetworkInterfaces interfaces;
    fakes::FakeSettingsPanes panes;
    std::shared_ptr<fakes::FakeToolRunner> tools = std::make_shared<fakes::FakeToolRunner>();
    std::vector<std::string> chosen;
    zv::Lists seams { recentFiles, applications, volumes, servers, interfaces, panes };
    DynamicMenuProvider lists = allLists({ .preferences = preferences,
        .folders = listings,
        .files = files,
        .itemsFolder = Url::fromPath("/items"),
        .seams = seams,
        .tools = tools,
        .clock = time,
        .tasks = time,
        .shortcutCommands = *this,
        .locationCommands = *this });

    /// What the list shows at once; nothing when it takes time.
    template <class Item> std::vector<Item> shown(MenuItemKind::Case kind)
    {
        std::vector<Item> items;
        lists.listOf(kind)->fill([&items](ListContent content) { items = std::get<std::vector<Item>>(std::move(content)); });
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
