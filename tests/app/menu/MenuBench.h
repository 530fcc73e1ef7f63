#pragma once

#include "app/menu/DynamicSubmenu.h"
#include "app/menu/MenuBuilder.h"
#include "app/menu/MenuKeyEquivalent.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeFolderReader.h"
#include "tests/fakes/FakeMenuServices.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <memory>
#include <string>
#include <vector>

namespace zv {

/// The entries as lines: "Title", "(Disabled)", "---" for a separator, "Title >" for a
/// submenu.
inline std::vector<std::string> linesOf(Menu const& menu)
{
    std::vector<std::string> lines;
    for (auto const& entry : menu.entries) {
        if (entry.type == MenuEntry::Type::separator)
            lines.emplace_back("---");
        else if (!entry.enabled)
            lines.push_back("(" + entry.title + ")");
        else
            lines.push_back(entry.title + (entry.submenu ? " >" : ""));
    }
    return lines;
}

inline std::string iconOf(MenuEntry const& entry) { return entry.image ? entry.image->name() : ""; }

inline DynamicEntry entryTitled(std::string title)
{
    DynamicEntry entry;
    entry.id = title;
    entry.sortName = title;
    entry.url = Url::fromPath("/list/" + title);
    entry.fileURL = entry.url;
    entry.title = std::move(title);
    return entry;
}

inline DynamicEntry separatorEntry()
{
    DynamicEntry entry;
    entry.isSeparator = true;
    return entry;
}

/// A builder with everything around it in memory.
struct MenuBench {
    using Lines = std::vector<std::string>;

    std::shared_ptr<Menu> build(std::vector<MenuItem> const& items, OptionKey option = OptionKey::released)
    {
        auto menu = std::make_shared<Menu>();
        builder.buildMenu(*menu, items, option);
        return menu;
    }
    /// The entry made for a single item.
    MenuEntry entryFor(MenuItem const& item, OptionKey option = OptionKey::released) { return build({ item }, option)->entries.front(); }
    /// Opens a submenu that fills itself.
    std::shared_ptr<Menu> open(MenuEntry const& entry)
    {
        entry.submenu->needsUpdate();
        return entry.submenu;
    }
    MenuEntry folderEntry(std::string const& path, std::int64_t depth = 3)
    {
        return builder.makeDynamicSubmenuItem("Folder", DynamicMenuSource::folder(Url::fromPath(path), depth));
    }
    MenuEntry listEntry(MenuItemKind::Case kind, std::int64_t depth = 3)
    {
        return builder.makeDynamicSubmenuItem("List", DynamicMenuSource::kind(kind, std::nullopt, depth));
    }
    MenuItem fileItem(std::string const& path)
    {
        auto item = MenuItem::ofKind(MenuItemKind::fsObject);
        item.location = ItemLocation { .path = path };
        return item;
    }
    /// Adds a list that the test answers.
    fakes::FakeList& listFor(MenuItemKind::Case kind)
    {
        auto list = std::make_unique<fakes::FakeList>(kind);
        auto& added = *list;
        lists.add(std::move(list));
        return added;
    }
    void turn() { time.runTasks(); }

    fakes::FakeUserDefaults defaults;
    Preferences preferences { defaults };
    fakes::FakeFileSystem files;
    fakes::FakeBookmarks bookmarks { files };
    fakes::FakeMenuIcons icons;
    fakes::FakeMenuCommands commands;
    fakes::FakeTime time;
    fakes::FakeWorkspace workspace { time };
    fakes::FakeResources resources;
    fakes::FakeTextMeasure text;
    std::shared_ptr<fakes::FakeFolderReader> reader = std::make_shared<fakes::FakeFolderReader>();
    FolderListings folders { reader, time };
    DynamicMenuProvider lists;
    fakes::FakeListedFolders listedFolders;
    fakes::FakeModifierKeys modifierKeys;
    OpeningKeys openingKeys { modifierKeys };
    fakes::FakeEntryMenus entryMenus;
    SubmenuSources sources { folders, lists, listedFolders, time, openingKeys, nullptr };
    MenuBuilder builder { { preferences, { files, bookmarks }, icons, commands, entryMenus, workspace, resources, text }, sources };
};

} // namespace zv
