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

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace zv::fakes {

/// A whole machine in memory, without a display.
struct FakeSystem {
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

    [[nodiscard]] System system()
    {
        return { .kind = kind,
            .files = { .defaults = defaults, .resources = resources, .disk = disk, .bookmarks = bookmarks, .aliases = aliases, .folders = folders },
            .time = { .clock = time, .timers = time, .tasks = time },
            .lists = { .recentFiles = recentFiles,
                .runningApplications = runningApplications,
                .volumes = volumes,
                .recentServers = recentServers,
                .networkInterfaces = networkInterfaces,
                .settingsPanes = settingsPanes,
                .applicationFolders = nullptr },
            .session = { .workspace = workspace, .desktop = desktop, .computer = computer, .events = sessionEvents, .scripts = scripts, .tools = tools },
            .places = places };
    }
};

/// The display of that machine.
struct FakeSurface {
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

    [[nodiscard]] Desk desk() { return { .application = application, .alerts = alerts, .modifierKeys = modifierKeys, .clipboard = clipboard }; }
    [[nodiscard]] Looks looks() { return { .text = text, .icons = icons }; }
    [[nodiscard]] Surface surface()
    {
        return { .desk = desk(),
            .looks = looks(),
            .presence = { .statusBar = statusBar,
                .showsStatusItems = [this] { return showsStatusItems; },
                .menuHost = menuHost,
                .hotkeys = hotkeys,
                .keyboardLayout = keyboardLayout,
                .overlay = OverlaySeams { .menuBars = menuBars,
                    .screens = screens,
                    .workspaceEvents = workspaceEvents,
                    .pointerMonitor = pointerMonitor,
                    .panels = panels,
                    .visibility = nullptr } },
            .windows = { .settings = settingsWindow,
                .settingsAlerts = alerts,
                .notes = notesWindows,
                .filePanels = filePanels,
                .forms = forms,
                .pictures = pictures,
                .notifications = notifications },
            .home = { .installation = installation,
                .loginService = loginService,
                .makeUpdateEngine = [this](UpdateChannels& channels, UpdateUserDriver& driver) { return makeEngine(channels, driver); },
                .installedApplications = [this](auto use) { use(installedApplications); },
                .permissions = nullptr,
                .extension = nullptr,
                .desktopKey = nullptr,
                .provideServices = [this] { ++servicesProvided; },
                .diagnostics = [] { return std::string("a machine in memory"); } } };
    }

private:
    std::unique_ptr<UpdateEngine> makeEngine(UpdateChannels& channels, UpdateUserDriver& driver)
    {
        auto engine = std::make_unique<FakeUpdateEngine>();
        engine->channels = &channels;
        engine->userDriver = &driver;
        updateEngine = engine.get();
        return engine;
    }
};

} // namespace zv::fakes
