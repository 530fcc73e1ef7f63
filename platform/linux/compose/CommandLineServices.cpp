#include "platform/linux/compose/CommandLineServices.h"

#include "app/doctor/DesktopChecks.h"
#include "app/doctor/ProgramChecks.h"
#include "platform/linux/doctor/DesktopSurvey.h"
#include "platform/linux/posix/ProgramFiles.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <unistd.h>

namespace zv {

namespace {

template <class Service, class... Arguments> Service& madeOnce(std::unique_ptr<Service>& service, Arguments&&... arguments)
{
    if (!service)
        service = std::make_unique<Service>(std::forward<Arguments>(arguments)...);
    return *service;
}

} // namespace

CommandLineServices::CommandLineServices(Streams streams)
    : CommandContext(streams)
{
}

UserDefaults& CommandLineServices::defaults() { return madeOnce(m_defaults, settingsFile(m_directories)); }

Resources const& CommandLineServices::resources() { return madeOnce(m_resources, BundleResources::standardFolders()); }

RunningProgram& CommandLineServices::runningProgram() { return madeOnce(m_runningProgram); }

CommandLineMenu& CommandLineServices::menu()
{
    CommandLineMenu::Services const services { preferences(), locations(), resources(), m_clock, runningProgram(), out() };
    return madeOnce(m_menu, services, m_directories);
}

MenuSession& CommandLineServices::menuSession() { return menu().session(); }

EntryChooser& CommandLineServices::chooser() { return menu().chooser(); }

Url CommandLineServices::itemsFolder() { return Url::fromPath(zv::itemsFolder(m_directories)); }

Url CommandLineServices::backupsFolder() { return Url::fromPath(zv::backupsFolder(m_directories)); }

Url CommandLineServices::currentFolder()
{
    char path[PATH_MAX];
    return Url::fromPath(::getcwd(path, sizeof path) ? path : "/");
}

std::vector<DoctorCheck> CommandLineServices::doctorChecks()
{
    auto const settings = Url::fromPath(settingsFile(m_directories)).parent();
    auto checks = programChecks(
        runningProgram(), resources(), m_files, store(), { { "Settings", settings }, { "Items", itemsFolder() }, { "Backups", backupsFolder() } });
    DesktopFindings findings;
    if (m_surveyDisplay)
        m_surveyDisplay(findings);
    surveyServices(DesktopAccess::ofThisMachine(m_directories), m_directories, findings);
    std::ranges::move(desktopChecks(findings), std::back_inserter(checks));
    return checks;
}

} // namespace zv
