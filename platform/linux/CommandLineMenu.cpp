#include "platform/linux/CommandLineMenu.h"

#include "app/menu/DynamicSubmenu.h"
#include "app/menu/FileEntry.h"
#include "app/menu/RecentItemsProvider.h"
#include "base/Log.h"
#include "platform/linux/ApplicationIndex.h"
#include "platform/linux/CellTextMeasure.h"
#include "platform/linux/CommandLineActions.h"
#include "platform/linux/CommandLineLists.h"
#include "platform/linux/LinuxFolderReader.h"
#include "platform/linux/ProgramFiles.h"
#include "platform/linux/RecentlyUsedQueries.h"
#include "platform/linux/qt/QtRunLoop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace zv {

namespace {

struct NoHotkeys : ListedFolderSink {
    void folderListed(Url const& /*folder*/, std::vector<DynamicEntry> const& /*withHotkeys*/) override { }
};

/// Qt's loop needs an application object, not a display.
struct LoopApplication {
    int argumentCount = 1;
    char name[12] = "zanthe-vell";
    char* arguments[2] = { name, nullptr };
    QCoreApplication application { argumentCount, arguments };
};

void turnUntil(std::function<bool()> const& isDone, std::chrono::milliseconds limit)
{
    bool isOver = false;
    QTimer patience;
    patience.setSingleShot(true);
    QObject::connect(&patience, &QTimer::timeout, [&] { isOver = true; });
    patience.start(limit);
    while (!isOver && !isDone())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace

struct CommandLineMenu::Parts {
    Parts(Services const& services, XdgDirectories const& directories)
        : access(DesktopAccess::ofThisMachine(directories))
        , machine({ loop, loop, services.preferences, folders, applications, [this](Url const& url) { launch(url); } }, access, directories)
        , queries({ loop, services.clock, applications }, directories.data + "/recently-used.xbel", LaunchLog(launchLogFile(directories)))
        , recentItems(queries, [&files = services.files](Url const& url) { return fileEntry(url, files); })
        , cache(recentItems, services.preferences, services.clock)
        , actions({ loop, services.clock, services.locations, services.program, services.out, turnUntil, machine.runningApplications() }, access, directories)
        , builder({ services.preferences, services.locations, machine.icons(), actions.commands(), actions.workspace(), services.resources, text }, sources)
    {
    }

    void launch(Url const& application)
    {
        actions.workspace().openNewInstance(application, [application](std::optional<std::string> const& failure) {
            if (failure)
                logLine("could not open " + application.toString() + ": " + *failure);
        });
    }

    LoopApplication application;
    QtRunLoop loop;
    NoHotkeys hotkeys;
    CellTextMeasure text;
    std::shared_ptr<FolderReader const> reader = std::make_shared<LinuxFolderReader>(DesktopAudience::current());
    FolderListings folders { reader, loop };
    ApplicationCatalog applications { loop, applicationFolders() };
    DesktopAccess access;
    CommandLineLists machine;
    RecentlyUsedQueries queries;
    RecentItemsProvider recentItems;
    RecentItemsCache cache;
    CommandLineActions actions;
    DynamicLists lists = machine.with(actions.shortcuts(), actions.locations());
    SubmenuSources sources { folders, cache, lists, hotkeys, loop };
    MenuBuilder builder;
    MenuSession session { builder, turnUntil };
};

CommandLineMenu::CommandLineMenu(Services const& services, XdgDirectories const& directories)
    : m_parts(std::make_unique<Parts>(services, directories))
{
}

CommandLineMenu::~CommandLineMenu() = default;

MenuSession& CommandLineMenu::session() { return m_parts->session; }

EntryChooser& CommandLineMenu::chooser() { return m_parts->actions; }

} // namespace zv
