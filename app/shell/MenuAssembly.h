#pragma once

#include "app/lists/AllLists.h"
#include "app/menu/DynamicSubmenu.h"
#include "app/menu/FolderListings.h"
#include "app/menu/MenuBuilder.h"
#include "app/menu/MenuIcon.h"
#include "platform/desk/IconSource.h"

namespace zv {

/// What menus are built from, put together. All services outlive it, and it outlives its menus.
class MenuAssembly {
public:
    struct Services {
        Preferences const& preferences;
        LocationServices locations;
        Resources const& resources;
        std::shared_ptr<FolderReader const> folders;
        TextMeasure const& text;
        RecentFiles& recentFiles;
        IconSource& icons;
        MenuCommands& commands;
        Workspace& workspace;
        RunningApplications& runningApplications;
        Volumes& volumes;
        RecentServers& recentServers;
        NetworkInterfaces& networkInterfaces;
        SettingsPanes& settingsPanes;
        ListedFolderSink& listedFolders;
        std::shared_ptr<ToolRunner> tools;
        ShortcutCommands& shortcutCommands;
        LocationCommands& locationCommands;
        Clock const& clock;
        Timers& timers;
        Tasks& tasks;
        Url itemsFolder;
    };

    explicit MenuAssembly(Services services);
    MenuAssembly(MenuAssembly const&) = delete;
    MenuAssembly& operator=(MenuAssembly const&) = delete;

    [[nodiscard]] MenuBuilder& builder() { return m_builder; }
    [[nodiscard]] DynamicMenuProvider const& lists() const { return m_lists; }
    [[nodiscard]] MenuIcons& icons() { return m_icons; }

private:
    FolderListings m_folders;
    DynamicMenuProvider m_lists;
    SubmenuSources m_sources;
    MenuIcon m_icons;
    MenuBuilder m_builder;
};

} // namespace zv
