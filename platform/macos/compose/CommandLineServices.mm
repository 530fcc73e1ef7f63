#import "platform/macos/compose/CommandLineServices.h"

#include "app/doctor/MacChecks.h"
#include "app/doctor/ProgramChecks.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/files/ProgramFolders.h"

#include <utility>

namespace zv {

namespace {

/// What is printed of a picture.
class PictureName : public Image {
public:
    explicit PictureName(std::string name)
        : m_name(std::move(name))
    {
    }
    std::string name() const override { return m_name; }

private:
    std::string m_name;
};

class PictureNames : public IconSource {
public:
    ImageRef fileIcon(Url const& file) override { return file.isFile() ? named(file.path()) : nullptr; }
    ImageRef computerIcon() override { return named("computer"); }
    ImageRef folderIcon() override { return named("folder"); }
    ImageRef networkIcon() override { return named("network"); }
    ImageRef applicationIcon() override { return named("application"); }

private:
    static ImageRef named(std::string name) { return std::make_shared<PictureName>(std::move(name)); }
};

} // namespace

struct CommandLineServices::Menus {
    explicit Menus(CommandLineServices& services)
        : menu({ services.preferences(), services.resources(),
            { *workspace, *desktop, *computer, *sessionEvents, *scripts, makeToolRunner(), *running, *tasks, pending, services.clock(), services.locations(),
                services.runningProgram(), services.out(), turnRunLoopUntil, services.itemsFolder() },
            makeFolderReader(), *cells, *recentFiles, pictures, *volumes, *recentServers, *networkInterfaces, *panes, *timers })
    {
    }

    WorkCount pending;
    PictureNames pictures;
    std::unique_ptr<Timers> timers = makeTimers();
    std::unique_ptr<Tasks> tasks = makeTasks();
    std::unique_ptr<TextMeasure> cells = makeCellTextMeasure();
    std::unique_ptr<Workspace> workspace = makeWorkspace();
    std::unique_ptr<DesktopCommands> desktop = makeDesktopCommands();
    std::unique_ptr<ComputerInfo> computer = makeComputerInfo();
    std::unique_ptr<SessionEvents> sessionEvents = makeSessionEvents();
    std::unique_ptr<ScriptRunner> scripts = makeScriptRunner();
    std::unique_ptr<RunningApplications> running = makeRunningApplications();
    std::unique_ptr<RecentFiles> recentFiles = makeRecentFiles();
    std::unique_ptr<Volumes> volumes = makeVolumes();
    std::unique_ptr<RecentServers> recentServers = makeRecentServers();
    std::unique_ptr<NetworkInterfaces> networkInterfaces = makeNetworkInterfaces();
    std::unique_ptr<SettingsPanes> panes = makeSettingsPanes(*tasks);
    CommandMenu menu;
};

CommandLineServices::CommandLineServices(Streams streams)
    : CommandContext(streams)
    , m_home(homeFolder().path())
    , m_defaults(makeUserDefaults())
    , m_resources(makeResources())
    , m_files(makeFileSystem())
    , m_bookmarks(makeBookmarks())
    , m_aliases(makeAliasFiles())
    , m_clock(makeClock())
    , m_post(makeMessagePort())
    , m_program(*m_post)
{
}

/// The system writes settings behind a program's back, which ends here.
CommandLineServices::~CommandLineServices() { [[NSUserDefaults standardUserDefaults] synchronize]; }

CommandMenu& CommandLineServices::menu()
{
    if (!m_menus)
        m_menus = std::make_unique<Menus>(*this);
    return m_menus->menu;
}

Url CommandLineServices::backupsFolder() { return zv::backupsFolder(); }

Url CommandLineServices::itemsFolder() { return zv::itemsFolder(); }

Url CommandLineServices::currentFolder() { return Url::fromPath(fromNSString([[NSFileManager defaultManager] currentDirectoryPath])); }

std::optional<std::string> CommandLineServices::fileToLink() { return fromNSString([[NSBundle mainBundle] executablePath]); }

/// The running program knows more; one that does not answer is looked at from outside.
MacFindings CommandLineServices::findings()
{
    auto const text = m_program.findings();
    auto const found = text ? decodedMacFindings(*text) : std::nullopt;
    return found ? *found : surveyThisMac();
}

std::vector<DoctorCheck> CommandLineServices::doctorChecks()
{
    auto checks = programChecks(m_program, resources(), files(), store(), { { "Items", itemsFolder() }, { "Backups", backupsFolder() } });
    for (auto& check : macChecks(findings()))
        checks.push_back(std::move(check));
    return checks;
}

} // namespace zv
