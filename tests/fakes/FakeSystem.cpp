#include "tests/fakes/FakeSystem.h"

namespace zv::fakes {

FakeSystem::FakeSystem() = default;
FakeSystem::~FakeSystem() = default;

System FakeSystem::system()
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

FakeSurface::FakeSurface() = default;
FakeSurface::~FakeSurface() = default;

Desk FakeSurface::desk() { return { .application = application, .alerts = alerts, .modifierKeys = modifierKeys, .clipboard = clipboard }; }

Looks FakeSurface::looks() { return { .text = text, .icons = icons }; }

Surface FakeSurface::surface()
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

std::unique_ptr<UpdateEngine> FakeSurface::makeEngine(UpdateChannels& channels, UpdateUserDriver& driver)
{
    auto engine = std::make_unique<FakeUpdateEngine>();
    engine->channels = &channels;
    engine->userDriver = &driver;
    updateEngine = engine.get();
    return engine;
}

} // namespace zv::fakes
