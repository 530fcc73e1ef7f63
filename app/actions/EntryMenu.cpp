#include "app/actions/EntryMenu.h"

#include "app/actions/ActionAlerts.h"
#include "app/menu/DisplayText.h"
#include "app/menu/DynamicSubmenu.h"
#include "app/menu/MenuBuilder.h"
#include "base/MainThread.h"
#include "base/Translation.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zv {

namespace {

constexpr Sentence noApplicationsTitle = mark("No Applications");

/// The kinds of entries that a row is for.
enum For : unsigned { file = 1, folder = 2, application = 4, menuItem = 8, recent = 16 };

unsigned kindsOf(EntrySubject const& subject)
{
    auto const item = subject.item ? unsigned { menuItem } : 0U;
    auto const* entry = subject.entry.get();
    if (!entry)
        return item;
    if (entry->action == DynamicEntryAction::activateApplication)
        return item | application;
    auto const kinds = item | (entry->recentList ? unsigned { recent } : 0U);
    if (!entry->fileURL || !entry->fileURL->isFile() || entry->unavailabilityReason)
        return kinds;
    return kinds | (entry->isDirectory && !entry->isPackage ? file | folder : unsigned { file });
}

bool isFolder(EntrySubject const& subject) { return (kindsOf(subject) & folder) != 0; }

Url const& urlOf(EntrySubject const& subject) { return *subject.entry->fileURL; }

std::string nameOf(EntrySubject const& subject) { return displayText(subject.entry->title); }

} // namespace

/// A command of entries' own menus.
///
/// To add one: its row, in its place, and what it does, a method here. What only a system can do is a seam
/// (platform/System.h). EntryMenuTest lists the rows of every kind of entry.
struct EntryMenu::Row {
    unsigned kinds; ///< of For
    int group; ///< a separator stands between groups
    Sentence title;
    Sentence macTitle; ///< empty: the same
    void (EntryMenu::*run)(EntrySubject const&) const; ///< null for the submenu of applications
    bool (*isPossible)(Shell const&) = [](Shell const&) { return true; };
};

EntryMenu::Row const EntryMenu::rows[] = {
    { file, 1, markc("a file", "Open"), {}, &EntryMenu::open },
    { file, 1, mark("Open With"), {}, nullptr },
    { file, 2, mark("Show in File Manager"), mark("Show in Finder"), &EntryMenu::reveal },
    { folder, 2, mark("Open Terminal Here"), {}, &EntryMenu::openTerminal },
    { file, 3, mark("Copy Path"), {}, &EntryMenu::copyPath },
    { file, 3, markc("a file, to the clipboard", "Copy"), {}, &EntryMenu::copy },
    { file, 3, mark("Add to Zanthe Vell Items"), {}, &EntryMenu::addToItems, [](Shell const& shell) { return bool(shell.addToItems); } },
    { recent, 3, markc("an entry of a list of recent things, at its top", "Keep in Menu"), {}, &EntryMenu::keep },
    { file, 4, mark("Move to Trash"), {}, &EntryMenu::moveToTrash },
    { application, 5, mark("Bring to Front"), {}, &EntryMenu::bringToFront },
    { application, 5, markc("another application", "Quit"), {}, &EntryMenu::quit },
    { menuItem, 6, markc("an entry of the menu", "Edit…"), {}, &EntryMenu::edit, [](Shell const& shell) { return bool(shell.editItem); } },
    { menuItem, 6, mark("Remove from Menu"), {}, &EntryMenu::remove, [](Shell const& shell) { return bool(shell.removeItem); } },
};

/// Fills a menu when it opens.
class EntryMenu::Filling : public MenuDelegate {
public:
    using Fill = std::function<void(Menu&)>;

    [[nodiscard]] static MenuEntry entry(std::string title, Fill fill)
    {
        MenuEntry made;
        made.submenu = std::make_shared<Menu>(title);
        made.title = std::move(title);
        auto const delegate = std::make_shared<Filling>(std::move(fill));
        made.submenu->delegate = delegate;
        made.representedObject = delegate;
        return made;
    }

    explicit Filling(Fill fill)
        : m_fill(std::move(fill))
    {
    }
    void menuNeedsUpdate(Menu& menu) override { m_fill(menu); }

private:
    Fill m_fill;
};

EntryMenu::EntryMenu(Services services)
    : m_services(std::move(services))
    , m_drop(m_services.system, m_services.desk)
{
}

MenuEntry EntryMenu::menuOf(MenuEntry const& entry) const
{
    assertMainThread();
    auto const hasRows = std::any_of(std::begin(rows), std::end(rows), [&](Row const& row) { return applies(row, entry.subject); });
    if (!hasRows)
        return {};
    return Filling::entry(entry.title, [this, subject = entry.subject](Menu& menu) { menu.entries = rowsFor(subject); });
}

std::shared_ptr<MenuActionTarget> EntryMenu::openingOf(EntrySubject const& subject) const
{
    if (!isFolder(subject))
        return nullptr;
    return std::make_shared<MenuActionTarget>([this, subject] { open(subject); });
}

/// Adds "Open “Home”"; on a Mac, where no click leads to a folder's own menu, the rest of it too.
void EntryMenu::addHead(Menu& submenu, EntrySubject const& subject) const
{
    std::vector<MenuEntry> head;
    if (m_services.system.kind == SystemKind::macOS)
        head = rowsFor(subject);
    else if (isFolder(subject))
        head.push_back(entryFor(rows[0], subject));
    if (head.empty())
        return;
    if (isFolder(subject))
        head.front().title = tr("Open %1", quoted(submenu.title));
    head.push_back(MenuEntry::separator());
    submenu.entries.insert(submenu.entries.begin(), std::make_move_iterator(head.begin()), std::make_move_iterator(head.end()));
}

std::vector<MenuEntry> EntryMenu::rowsFor(EntrySubject const& subject) const
{
    std::vector<MenuEntry> entries;
    int group = 0;
    for (auto const& row : rows) {
        if (!applies(row, subject))
            continue;
        if (!entries.empty() && row.group != group)
            entries.push_back(MenuEntry::separator());
        group = row.group;
        entries.push_back(entryFor(row, subject));
    }
    return entries;
}

bool EntryMenu::applies(Row const& row, EntrySubject const& subject) const
{
    if ((row.kinds & kindsOf(subject)) == 0 || !row.isPossible(m_services.shell))
        return false;
    if (row.run == &EntryMenu::moveToTrash)
        return !holdsTheItemsFolder(urlOf(subject)) && !m_services.system.files.disk->volumeName(urlOf(subject));
    return row.kinds != menuItem || (m_services.shell.isInMenu && m_services.shell.isInMenu(*subject.item));
}

/// True for the home folder as well, and for all that holds it.
bool EntryMenu::holdsTheItemsFolder(Url const& file) const
{
    auto const items = m_services.system.places.itemsFolder.path() + "/";
    auto const path = file.path();
    return items.starts_with(path.ends_with('/') ? path : path + "/");
}

MenuEntry EntryMenu::entryFor(Row const& row, EntrySubject const& subject) const
{
    bool const isMac = m_services.system.kind == SystemKind::macOS;
    std::string title = tr(isMac && !row.macTitle.isEmpty() ? row.macTitle : row.title);
    if (!row.run)
        return openWithEntry(std::move(title), subject);
    auto entry = MenuBuilder::makeActionItem(std::move(title), [this, run = row.run, subject] { (this->*run)(subject); });
    if (row.run == &EntryMenu::keep) {
        entry.isMarked = m_services.kept.has(*subject.entry->recentList, urlOf(subject));
        entry.enabled = !m_services.kept.isLocked();
    }
    return entry;
}

MenuEntry EntryMenu::openWithEntry(std::string title, EntrySubject const& subject) const
{
    return Filling::entry(std::move(title), [this, subject](Menu& menu) {
        showLoading(menu);
        auto const show = [this, file = urlOf(subject), weak = menu.weak_from_this()](std::vector<InstalledApplication> const& found) {
            if (auto const shown = weak.lock())
                showApplications(*shown, file, found);
        };
        m_services.system.session.workspace.findApplicationsFor(urlOf(subject), m_lifetime.guard(show));
    });
}

/// Shows the default one first and apart.
void EntryMenu::showApplications(Menu& menu, Url const& file, std::vector<InstalledApplication> const& found) const
{
    menu.entries.clear();
    for (auto const& application : found) {
        auto open = [&workspace = m_services.system.session.workspace, file, program = application.file] { workspace.openWith(file, program); };
        menu.entries.push_back(MenuBuilder::makeActionItem(displayText(application.name), std::move(open)));
        if (m_services.preferences.showIcons())
            menu.entries.back().image = m_services.icons.iconForFile(application.file);
    }
    if (found.empty())
        menu.entries.push_back(MenuEntry::disabled(tr(noApplicationsTitle)));
    else if (found.size() > 1)
        menu.entries.insert(menu.entries.begin() + 1, MenuEntry::separator());
    menu.didRefill();
}

std::optional<Url> EntryMenu::fileOf(EntrySubject const& subject) const
{
    return (kindsOf(subject) & file) != 0 ? std::optional(urlOf(subject)) : std::nullopt;
}

std::optional<Url> EntryMenu::folderOf(EntrySubject const& subject) const { return isFolder(subject) ? fileOf(subject) : std::nullopt; }

void EntryMenu::open(EntrySubject const& subject) const { m_services.commands.open(*subject.entry); }

void EntryMenu::reveal(EntrySubject const& subject) const { m_services.system.session.workspace.reveal(urlOf(subject)); }

void EntryMenu::openTerminal(EntrySubject const& subject) const
{
    m_services.system.session.desktop.openTerminal(urlOf(subject), m_lifetime.guard([this](PlaceOutcome outcome) {
        if (outcome == PlaceOutcome::notFound)
            present(noTerminalAlert());
    }));
}

void EntryMenu::copyPath(EntrySubject const& subject) const { m_services.desk.clipboard.setText(urlOf(subject).path()); }

void EntryMenu::copy(EntrySubject const& subject) const { m_services.desk.clipboard.setFiles({ urlOf(subject) }); }

void EntryMenu::addToItems(EntrySubject const& subject) const { m_services.shell.addToItems({ urlOf(subject) }); }

void EntryMenu::moveToTrash(EntrySubject const& subject) const
{
    auto const name = nameOf(subject);
    m_services.desk.application.activate();
    if (m_services.desk.alerts.run(trashQuestion(name)) != 0)
        return;
    m_services.system.session.workspace.moveToTrash(urlOf(subject), m_lifetime.guard([this, name](Result<void> const& moved) {
        if (!moved)
            present(trashAlert(name, moved.error()));
    }));
}

void EntryMenu::bringToFront(EntrySubject const& subject) const { m_services.commands.open(*subject.entry); }

void EntryMenu::quit(EntrySubject const& subject) const { m_services.system.lists.runningApplications.quit(subject.entry->id); }

void EntryMenu::keep(EntrySubject const& subject) const { m_services.kept.toggle(*subject.entry->recentList, urlOf(subject)); }

void EntryMenu::edit(EntrySubject const& subject) const { m_services.shell.editItem(*subject.item); }

void EntryMenu::remove(EntrySubject const& subject) const { m_services.shell.removeItem(*subject.item); }

void EntryMenu::present(Alert const& alert) const
{
    m_services.desk.application.activate();
    m_services.desk.alerts.run(alert);
}

} // namespace zv
