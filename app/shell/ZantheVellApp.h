#pragma once

#include "app/actions/ActionAlerts.h"
#include "app/actions/AddToItemsService.h"
#include "app/actions/MenuActions.h"
#include "app/hotkeys/FileHotkeys.h"
#include "app/menubar/AppleMenuOverlayController.h"
#include "app/menubar/StatusItemController.h"
#include "app/model/MenuBackups.h"
#include "app/settings/LoginItem.h"
#include "app/settings/SettingsModels.h"
#include "app/shell/AppDelegate.h"
#include "app/shell/Begging.h"
#include "app/shell/DockIconController.h"
#include "app/shell/MenuAssembly.h"
#include "app/shell/Relocation.h"
#include "app/shell/SettingsOpener.h"
#include "app/shell/StatusItemJoints.h"
#include "app/updates/KresUpdater.h"
#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/program/Permissions.h"

#include <optional>

namespace zv {

/// The running program: everything of it that the system has no part in, put together.
/// Main thread only.
class ZantheVellApp : private LaunchSteps {
public:
    /// What the program runs on. All of it outlives the program.
    struct Platform {
        UserDefaults& defaults;
        Resources const& resources;
        std::shared_ptr<FileSystem> files;
        Bookmarks& bookmarks;
        AliasFiles& aliases;
        std::shared_ptr<FolderReader const> folders;
        Clock& clock;
        Timers& timers;
        Tasks& tasks;

        Application& application;
        Alerts& alerts;
        ModifierKeys const& modifierKeys;
        Clipboard& clipboard;
        Workspace& workspace;
        DesktopCommands& desktop;
        ComputerInfo& computer;
        SessionEvents& sessionEvents;
        ScriptRunner& scripts;
        std::shared_ptr<ToolRunner> tools;

        TextMeasure const& text;
        IconSource& icons;
        RecentFiles& recentFiles;
        RunningApplications& runningApplications;
        Volumes& volumes;
        RecentServers& recentServers;
        NetworkInterfaces& networkInterfaces;
        SettingsPanes& settingsPanes;

        HotkeyRegistrar& hotkeys;
        KeyboardLayoutSource& keyboardLayout;
        StatusBar& statusBar;
        MenuHost& menuHost;
        std::optional<AppleMenuOverlayServices> overlay; ///< none where no program may stand on the panel
        SettingsWindow& settingsWindow;

        Installation& installation;
        LoginService& loginService;
        NotesWindows& notesWindows;
        UserNotifications& userNotifications;
        UpdateEngineFactory makeUpdateEngine;
        FilePanels& filePanels;
        SettingsWording wording;
        std::function<std::optional<std::string>()> statusItemProblem;
        std::function<std::string()> diagnostics;
        /// How the program is reached when it is neither in the menu bar nor in the panel.
        enum class LastResort { dockIcon, settingsAtStart } lastResort = LastResort::dockIcon;

        Url bundle; ///< what was started
        Environment environment;
        std::string homePath;
        Url itemsFolder;
        Url backupsFolder;
        InstalledApplications installedApplications = {}; ///< for the palette of the settings

        Permissions const* permissions = nullptr; ///< null where the system asks for none
        /// From here on other programs may reach addFiles(); empty where they always could,
        /// and were not listened to.
        std::function<void()> provideServices {};
    };

    explicit ZantheVellApp(Platform platform);
    ~ZantheVellApp();
    ZantheVellApp(ZantheVellApp const&) = delete;
    ZantheVellApp& operator=(ZantheVellApp const&) = delete;

    /// The start-up sequence; when it answers `relocated`, a copy takes over and this process ends.
    AppDelegate::Launch launch();
    /// What other processes ask for: the program was opened once more, files are to be added.
    void reopen();
    void openSettings() override;
    /// Returns at once. The failure is a sentence for who asked.
    [[nodiscard]] MaybeFailure<> addFiles(std::vector<Url> files);
    [[nodiscard]] std::string hotkeyReport() const;

    [[nodiscard]] Preferences& preferences() { return m_preferences; }
    [[nodiscard]] MenuStore& store() { return m_store; }
    [[nodiscard]] HotkeyCenter& hotkeys() { return m_hotkeys; }
    /// Null until launched, and when a copy takes over.
    [[nodiscard]] StatusItemController* statusItem() { return m_statusItem.get(); }
    /// Made when first asked for.
    [[nodiscard]] SettingsModels& settingsModels();

private:
    bool relocateIfNeeded() override;
    void makeStatusItem() override;
    void makeDockIcon() override;
    void setServicesProvider() override;
    void startUpdater() override;
    void showNotesIfDue() override;

    [[nodiscard]] LocationServices locations() const { return { *m_platform.files, m_platform.bookmarks, m_platform.homePath }; }
    [[nodiscard]] MenuActions::Services actionServices();
    [[nodiscard]] MenuActions::Shell actionShell();
    [[nodiscard]] MenuAssembly::Services menuServices();
    [[nodiscard]] StatusItemController::Services statusItemServices();
    [[nodiscard]] SettingsModels::Services settingsServices();
    [[nodiscard]] std::shared_ptr<void> makeOverlay(std::function<void(Point)> showMenu);
    void settingsChangedElsewhere(std::vector<std::string> const& keys);

    Platform m_platform;
    Preferences m_preferences;
    MenuBackups m_backups;
    MenuStore m_store;
    Begging m_begging;
    SettingsOpener m_settings;
    LoginItem m_loginItem;
    KresUpdater m_updater;

    Notifications m_notifications;
    KeyboardLayout m_layout;
    HotkeyCenter m_hotkeys;
    FileHotkeys m_fileHotkeys;

    AlertConfirmation m_confirmation;
    SessionControl m_session;
    SystemEventsBridge m_scripts;
    MenuActions m_actions;
    AddToItemsService m_addToItems;
    bool m_takesFiles = false; ///< other programs reach the service only once it is provided

    MenuAssembly m_menus;
    BuilderJoint m_filler;
    ListsJoint m_lists;
    HotkeysJoint m_hotkeyPasses;
    LayoutJoint m_layoutChanges;
    PrescanJoint m_prescan;
    std::unique_ptr<StatusItemController> m_statusItem;
    std::unique_ptr<DockIconController> m_dockIcon;
    std::unique_ptr<SettingsModels> m_settingsModels;
    AppDelegate m_delegate { *this };
};

} // namespace zv
