#pragma once

#include "app/shell/MenuAssembly.h"
#include "cli/CommandActions.h"

namespace zv {

/// Menus of this machine without a display, and what their entries do: the lists are as they
/// are, icons are names, and nothing is drawn.
class CommandMenu {
public:
    /// What only the system can do. All of it outlives the menu.
    struct Platform {
        Preferences const& preferences;
        Resources const& resources;
        CommandActions::Services actions;

        std::shared_ptr<FolderReader const> folders;
        TextMeasure const& cells; ///< measures in cells of a terminal
        RecentFiles& recentFiles;
        IconSource& icons;
        Volumes& volumes;
        RecentServers& recentServers;
        NetworkInterfaces& networkInterfaces;
        SettingsPanes& settingsPanes;
        Timers& timers;
    };

    explicit CommandMenu(Platform platform);
    CommandMenu(CommandMenu const&) = delete;
    CommandMenu& operator=(CommandMenu const&) = delete;

    [[nodiscard]] MenuSession& session() { return m_session; }
    [[nodiscard]] EntryChooser& chooser() { return m_actions; }

private:
    /// Hotkeys are the running program's.
    struct NoHotkeys : ListedFolderSink {
        void folderListed(Url const& /*folder*/, std::vector<DynamicEntry> const& /*withHotkeys*/) override { }
    };

    [[nodiscard]] MenuAssembly::Services menuServices(Platform const& platform);

    NoHotkeys m_hotkeys;
    CommandActions m_actions;
    MenuAssembly m_menus;
    MenuSession m_session;
};

} // namespace zv
