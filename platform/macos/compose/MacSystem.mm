#import "platform/macos/compose/MacSystem.h"

#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/files/ProgramFolders.h"

namespace zv {

namespace {

Environment processEnvironment()
{
    Environment environment;
    NSDictionary* const given = NSProcessInfo.processInfo.environment;
    for (NSString* name in given)
        environment[fromNSString(name)] = fromNSString([given objectForKey:name]);
    return environment;
}

Places placesOfThisProgram()
{
    return { .bundle = fromNSURL(NSBundle.mainBundle.bundleURL),
        .environment = processEnvironment(),
        .home = homeFolder().path(),
        .userFolders
        = { homeFolder().appending("Desktop"), homeFolder().appending("Documents"), homeFolder().appending("Downloads"), homeFolder().appending("Pictures") },
        .itemsFolder = itemsFolder(),
        .backupsFolder = backupsFolder(),
        .chosenFile = chosenFile() };
}

} // namespace

MacFiles::MacFiles()
    : m_places(placesOfThisProgram())
{
}

Files MacFiles::files() const
{
    return { .defaults = *m_defaults, .resources = *m_resources, .disk = m_disk, .bookmarks = *m_bookmarks, .aliases = *m_aliases, .folders = m_folders };
}

System MacSystem::system() const
{
    return { .kind = SystemKind::macOS,
        .files = m_files.files(),
        .time = { .clock = m_files.clock(), .timers = *m_timers, .tasks = *m_tasks },
        .lists = { .recentFiles = *m_recentFiles,
            .runningApplications = *m_runningApplications,
            .volumes = *m_volumes,
            .recentServers = *m_recentServers,
            .networkInterfaces = *m_networkInterfaces,
            .settingsPanes = *m_settingsPanes,
            .applicationFolders = nullptr },
        .session = { .workspace = *m_workspace,
            .desktop = *m_desktop,
            .computer = *m_computer,
            .events = *m_events,
            .scripts = *m_scripts,
            .tools = m_tools },
        .places = m_files.places() };
}

} // namespace zv
