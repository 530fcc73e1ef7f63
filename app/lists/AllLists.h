#pragma once

#include "app/actions/ListCommands.h"
#include "app/menu/DynamicMenuProvider.h"
#include "app/menu/FolderListings.h"
#include "app/menu/ListedFolderSink.h"
#include "app/model/KeptEntries.h"
#include "app/model/Preferences.h"
#include "platform/files/FileSystem.h"
#include "platform/lists/Lists.h"
#include "platform/session/ToolRunner.h"
#include "platform/time/Clock.h"
#include "platform/time/Tasks.h"

#include <memory>

/// The lists that fill themselves, a file each in this folder.
///
/// To add one:
/// 1. app/model/MenuItemKind.h: its kind, before `openWith`; MenuItemKind.cpp: the kind's row in
///    the same place, with the text it is stored as, its title, and Fills::itself.
/// 2. app/lists/NewList.cpp: a DynamicList with its kind, its icon and how it fills, and the
///    function that adds it. VolumeList asks a seam, LocationList makes items of its own,
///    RecentItemsLists shows what it knows and asks anew.
/// 3. Here: that function, declared and among `listAdders`.
/// 4. app/resources/Library.plist and "Library (Linux).plist": a record each, so that the kind can
///    be put into a menu; ItemLibraryTest misses it there.
/// 5. tests/app/lists/ListsTest.cpp: its row; a kind that fills itself and has no list fails there.
///
/// The list asks the system through a seam in platform/lists; platform/System.h has the recipe for a new one.
namespace zv {

/// The services that lists use; all outlive them.
struct ListServices {
    Preferences const& preferences;
    KeptEntries const& kept;
    FolderListings& folders;
    FileSystem const& files;
    Url itemsFolder;
    ListedFolderSink& listedFolders;
    Lists const& seams;
    std::shared_ptr<ToolRunner> tools;
    Clock const& clock;
    Tasks& tasks;
    ShortcutCommands& shortcutCommands;
    LocationCommands& locationCommands;
};

void addAddressList(DynamicMenuProvider& lists, ListServices const& services);
void addItemsFolderList(DynamicMenuProvider& lists, ListServices const& services);
void addLocationList(DynamicMenuProvider& lists, ListServices const& services);
void addRecentItemsLists(DynamicMenuProvider& lists, ListServices const& services);
void addRunningApplicationList(DynamicMenuProvider& lists, ListServices const& services);
void addServerList(DynamicMenuProvider& lists, ListServices const& services);
void addSettingsPaneList(DynamicMenuProvider& lists, ListServices const& services);
void addShortcutList(DynamicMenuProvider& lists, ListServices const& services);
void addVolumeList(DynamicMenuProvider& lists, ListServices const& services);

inline constexpr void (*listAdders[])(DynamicMenuProvider&, ListServices const&) = {
    addAddressList,
    addItemsFolderList,
    addLocationList,
    addRecentItemsLists,
    addRunningApplicationList,
    addServerList,
    addSettingsPaneList,
    addShortcutList,
    addVolumeList,
};

[[nodiscard]] inline DynamicMenuProvider allLists(ListServices const& services)
{
    DynamicMenuProvider lists;
    for (auto const add : listAdders)
        add(lists, services);
    return lists;
}

} // namespace zv
