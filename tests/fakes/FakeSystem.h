#pragma once

#include "platform/System.h"
#include "tests/fakes/FakeActions.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeFilePanels.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeFolderReader.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/FakeHotkeys.h"
#include "tests/fakes/FakeLists.h"
#include "tests/fakes/FakeMenuBar.h"
#include "tests/fakes/FakeMenuServices.h"
#include "tests/fakes/FakeOverlay.h"
#include "tests/fakes/FakePermissions.h"
#include "tests/fakes/FakePictureSource.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUpdates.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <memory>
#include <string>
#include <utility>

namespace zv::fakes {

// Constructors and destructors stand in FakeSystem.cpp: a file that had them would have the code of all fakes.

/// A whole machine in memory, without a display.
struct FakeSystem {
    FakeSystem();
    ~FakeSystem();

    SystemKind kind = SystemKind::macOS;
    FakeUserDefaults defaults;
    FakeResources resources;
    std::shared_ptr<FakeFileSystem> disk = std::make_shared<FakeFileSystem>();
    FakeFileSystem& files = *disk;
    FakeBookmarks bookmarks { files };
    FakeAliasFiles aliases { files };
    std::shared_ptr<FakeFolderReader> folders = std::make_shared<FakeFolderReader>();
    FakeTime time;
    FakeRecentFiles recentFiles;
    FakeRunningApplications runningApplications { time };
    FakeVolumes volumes { time };
    FakeRecentServers recentServers { time };
    FakeNetworkInterfaces networkInterfaces { time };
    FakeSettingsPanes settingsPanes { time };
    FakeWorkspace workspace { time };
    FakeDesktopCommands desktop { time };
    FakeComputerInfo computer { time };
    FakeSessionEvents sessionEvents { time };
    FakeScriptRunner scripts { time };
    std::shared_ptr<FakeToolRunner> tools = std::make_shared<FakeToolRunner>();
    Places places { .bundle = Url::fromPath("/Applications/Zanthe Vell.app"),
        .environment = {},
        .home = "/home/ada",
        .itemsFolder = Url::fromPath("/data/Items"),
        .backupsFolder = Url::fromPath("/data/Backups"),
        .chosenFile = Url::fromPath("/data/Search/Chosen.plist") };

    [[nodiscard]] System system();
};

/// The display of that machine.
struct FakeSurface {
    FakeSurface();
    ~FakeSurface();

    FakeApplication application;
    FakeAlerts alerts;
    FakeModifierKeys modifierKeys;
    FakeClipboard clipboard;
    FakeTextMeasure text;
    FakeIconSource icons;
    FakeStatusBar statusBar;
    bool showsStatusItems = true;
    FakeMenuHost menuHost;
    FakeHotkeyRegistrar hotkeys;
    FakeKeyboardLayoutSource keyboardLayout;
    FakeMenuBars menuBars;
    FakeScreens screens;
    FakeWorkspaceEvents workspaceEvents;
    FakePointerMonitor pointerMonitor;
    FakeOverlayPanels panels;
    FakeSettingsWindow settingsWindow;
    FakeNotesWindows notesWindows;
    FakeFilePanels filePanels;
    FakeForms forms;
    FakePictureSource pictures;
    FakeUserNotifications notifications;
    FakeInstallation installation;
    FakeLoginService loginService;
    FakeUpdateEngine* updateEngine = nullptr; ///< once it was made
    int servicesProvided = 0;
    std::vector<InstalledApplication> installedApplications;

    [[nodiscard]] Desk desk();
    [[nodiscard]] Looks looks();
    [[nodiscard]] Surface surface();

private:
    std::unique_ptr<UpdateEngine> makeEngine(UpdateChannels& channels, UpdateUserDriver& driver);
};

} // namespace zv::fakes
