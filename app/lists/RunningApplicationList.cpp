#include "app/lists/AllLists.h"
#include "app/lists/ListEntries.h"
#include "app/menu/MenuIcon.h"
#include "base/Translation.h"

namespace zv {

namespace {

/// The application's file, else a URL made of its id: an entry with an action needs one.
Url urlNaming(RunningApplication const& application)
{
    if (application.url)
        return *application.url;
    auto const escaped = Url::fromPath("/" + application.id).toString().substr(std::string_view("file:///").size());
    return Url::parse("application:" + escaped).value_or(Url::fromPath("/"));
}

DynamicEntry entryFor(RunningApplication const& application)
{
    auto entry = namedEntry(application.id, application.name);
    entry.url = urlNaming(application);
    entry.fileURL = application.url;
    entry.isPackage = true; // a bundle is a folder: it must not become a submenu
    entry.action = DynamicEntryAction::activateApplication;
    return entry;
}

std::vector<DynamicEntry> entriesFor(RunningApplications::List const& applications)
{
    if (!applications) {
        auto const title = MenuItemKind(MenuItemKind::runningApplications).defaultTitle();
        return { unavailableEntry(title, tr("This desktop does not tell which applications are running.")) };
    }
    std::vector<DynamicEntry> entries;
    for (auto const& application : *applications)
        entries.push_back(entryFor(application));
    dropDoubles(entries);
    sortByName(entries);
    return entries;
}

class RunningApplicationList : public DynamicList {
public:
    explicit RunningApplicationList(RunningApplications& applications)
        : m_applications(applications)
    {
    }
    MenuItemKind::Case kind() const override { return MenuItemKind::runningApplications; }
    ImageRef icon(MenuIcon& icons) const override { return icons.systemIcon(SystemIcon::runningApplications); }
    void fill(Done done) override
    {
        m_applications.list([done = std::move(done)](auto const& applications) { done(entriesFor(applications)); });
    }

private:
    RunningApplications& m_applications;
};

} // namespace

void addRunningApplicationList(DynamicMenuProvider& lists, ListServices const& services)
{
    lists.add(std::make_unique<RunningApplicationList>(services.seams.runningApplications));
}

} // namespace zv
