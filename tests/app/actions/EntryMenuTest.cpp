#include "app/actions/EntryMenu.h"
#include "platform/text/PropertyListFormat.h"
#include "tests/app/shell/ProgramFixture.h"

namespace zv {
namespace {

using Kind = MenuItemKind;

struct EntryMenuTest : ProgramFixture {
    EntryMenuTest()
    {
        machine.kind = SystemKind::linuxDesktop;
        machine.files.addFile("/a.txt");
        machine.files.addFolder("/Home");
        machine.files.addFolder("/data"); // in which the Items folder lies
        machine.folders->folders["/Home"] = { { "b.txt" } };
        machine.runningApplications.applications = { { "editor", "Editor", Url::fromPath("/editor.desktop") } };
        machine.workspace.openers = { { "Editor", Url::fromPath("/editor.desktop") }, { "Viewer", Url::fromPath("/viewer.desktop") } };
    }

    static std::string titlesOf(Menu const& menu)
    {
        std::string titles;
        for (auto const& entry : menu.entries)
            titles += (titles.empty() ? "" : ", ") + (entry.type == MenuEntry::Type::separator ? "-" : entry.title);
        return titles;
    }
    /// Opens the menus on the way; the last title's entry.
    MenuEntry entryAt(std::vector<std::string> const& titles)
    {
        MenuEntry at;
        for (auto const& title : titles) {
            auto& within = at.submenu ? *at.submenu : menu();
            if (at.submenu)
                within.needsUpdate();
            machine.time.runTasks();
            auto const* found = entryIn(within, title);
            at = found ? MenuEntry(*found) : MenuEntry {};
        }
        return at;
    }
    MenuEntry menuOf(std::vector<std::string> const& titles)
    {
        auto const entry = entryAt(titles);
        auto own = entry.subject.menus ? entry.subject.menus->menuOf(entry) : MenuEntry {};
        if (own.submenu)
            own.submenu->needsUpdate();
        return own;
    }
    void choose(std::vector<std::string> const& entry, std::string const& command)
    {
        auto const own = menuOf(entry);
        entryIn(*own.submenu, command)->target->invoke();
        machine.time.runTasks();
    }
};

TEST_F(EntryMenuTest, EachKindOfEntryHasItsRows)
{
    auto dockItem = item(Kind::dockHiding);
    dockItem.title = "Hide";
    machine.resources.files["DockMenu.plist"] = writePropertyList(toPropertyList(std::vector { dockItem })).value();
    launchWith({ fileItem("/a.txt"), fileItem("/Home"), fileItem("/gone"), fileItem("/data"), item(Kind::runningApplications), item(Kind::sleep),
        item(Kind::separator), item(Kind::dockMenu) });
    std::string const file = "Open, Open With, -, Show in File Manager, -, Copy Path, Copy, Add to Zanthe Vell Items, -, Move to Trash";
    std::string const folder = "Open, Open With, -, Show in File Manager, Open Terminal Here, -, Copy Path, Copy, Add to Zanthe Vell Items, -, Move to Trash";
    std::string const ofMenu = "Edit…, Remove from Menu";
    struct Row {
        std::vector<std::string> entry;
        std::string titles;
    };
    Row const rows[] = {
        { { "a.txt" }, file + ", -, " + ofMenu },
        { { "Home" }, folder + ", -, " + ofMenu },
        { { "data" }, folder.substr(0, folder.find(", -, Move")) + ", -, " + ofMenu },
        { { "File or Folder" }, ofMenu },
        { { "Sleep" }, ofMenu },
        { { "Home", "b.txt" }, file },
        { { "Running Applications", "Editor" }, "Bring to Front, Quit" },
    };
    for (auto const& row : rows) {
        auto const own = menuOf(row.entry);
        ASSERT_NE(own.submenu, nullptr) << row.entry.back();
        EXPECT_EQ(titlesOf(*own.submenu), row.titles) << row.entry.back();
    }
    EXPECT_EQ(menuOf({ "Customize Zanthe Vell…" }).submenu, nullptr);
    ASSERT_NE(entryAt({ "Dock", "Hide" }).target, nullptr);
    EXPECT_EQ(menuOf({ "Dock", "Hide" }).submenu, nullptr) << "it is no item of the user's";
}

TEST_F(EntryMenuTest, RowsActOnTheirEntry)
{
    launchWith({ fileItem("/a.txt"), fileItem("/Home"), item(Kind::runningApplications), item(Kind::sleep) });
    choose({ "a.txt" }, "Open");
    choose({ "a.txt" }, "Show in File Manager");
    auto const openWith = MenuEntry(*entryIn(*menuOf({ "a.txt" }).submenu, "Open With"));
    auto const& applications = openWith.submenu;
    applications->needsUpdate();
    machine.time.runTasks();
    EXPECT_EQ(titlesOf(*applications), "Editor, -, Viewer") << "the default one first";
    applications->entries.back().target->invoke();
    front.alerts.answers = { 1, 0 };
    choose({ "a.txt" }, "Move to Trash");
    choose({ "Home", "b.txt" }, "Move to Trash");
    EXPECT_EQ(machine.workspace.log,
        (Lines { "open file:///a.txt", "reveal file:///a.txt", "open file:///a.txt with file:///viewer.desktop", "trash file:///Home/b.txt" }))
        << "Cancel moves nothing";
    EXPECT_EQ(front.alerts.shown.back().message, "Do you want to move “b.txt” to the Trash?");

    choose({ "Home" }, "Open Terminal Here");
    EXPECT_EQ(machine.desktop.terminals, (Lines { "/Home" }));
    choose({ "Home" }, "Copy Path");
    choose({ "Home" }, "Copy");
    EXPECT_EQ(front.clipboard.texts, (Lines { "/Home", "file /Home" }));
    choose({ "Running Applications", "Editor" }, "Bring to Front");
    choose({ "Running Applications", "Editor" }, "Quit");
    EXPECT_EQ(machine.runningApplications.activated, (Lines { "editor", "quit editor" }));
    choose({ "Home" }, "Add to Zanthe Vell Items");
    EXPECT_TRUE(machine.files.nodes.contains("/data/Items/Home"));

    auto const sleep = app->delegate().store().items().back().id;
    choose({ "Sleep" }, "Edit…");
    EXPECT_EQ(front.settingsWindow.shownItem, sleep);
    choose({ "Sleep" }, "Remove from Menu");
    EXPECT_EQ(app->delegate().store().find(sleep), nullptr);
}

TEST_F(EntryMenuTest, KeepInMenuIsCheckedWhileAnEntryIsKeptAndLetsItGoWhenItsFileHasGone)
{
    machine.recentServers.servers = { { *Url::parse("smb://nas/share"), {} } };
    launchWith({ item(Kind::recentDocs), item(Kind::recentServers) });
    std::vector<std::string> const document { "Recent Documents", "a.txt" };
    entryAt({ "Recent Documents" }).submenu->needsUpdate();
    for (std::size_t i = 0; i < machine.recentFiles.searches.size(); ++i)
        machine.recentFiles.answer(i, { { "/a.txt" } });
    auto const isKept = [this](std::vector<std::string> const& entry) { return entryIn(*menuOf(entry).submenu, "Keep in Menu")->isMarked; };
    for (auto const& entry : { document, { "Recent Servers", "share — nas" } }) {
        EXPECT_FALSE(isKept(entry));
        choose(entry, "Keep in Menu");
        EXPECT_TRUE(isKept(entry));
    }
    machine.files.nodes.erase("/a.txt");
    EXPECT_FALSE(entryAt(document).enabled);
    EXPECT_EQ(titlesOf(*menuOf(document).submenu), "Keep in Menu");
    choose(document, "Keep in Menu");
    machine.recentServers.servers->clear();
    EXPECT_EQ(entryAt({ "Recent Servers", "share — nas" }).title, "share — nas");
    EXPECT_EQ(entryAt(document).title, "a.txt") << "the desktop still remembers it";
    EXPECT_TRUE(entryAt(document).enabled);
}

TEST_F(EntryMenuTest, OptionPutsAFoldersOpeningAboveItsEntries)
{
    auto group = item(Kind::submenu);
    group.children = { item(Kind::sleep) };
    struct Row {
        SystemKind system;
        std::string folder, group;
    };
    Row const rows[] = {
        { SystemKind::linuxDesktop, "Open “Home”, -, b.txt", "Sleep" },
        { SystemKind::macOS,
            "Open “Home”, Open With, -, Show in Finder, Open Terminal Here, -, Copy Path, Copy, Add to Zanthe Vell Items, -, Move to Trash, -, "
            "Edit…, Remove from Menu, -, b.txt",
            "Edit…, Remove from Menu, -, Sleep" },
    };
    for (auto const& row : rows) {
        machine.kind = row.system;
        launchWith({ fileItem("/Home"), group });
        EXPECT_EQ(firstList(), (Lines { "b.txt" }));
        front.modifierKeys.held = ModifierMask::option;
        auto const home = entryAt({ "Home" }).submenu;
        home->needsUpdate();
        EXPECT_EQ(titlesOf(*home), row.folder);
        EXPECT_EQ(titlesOf(*entryAt({ "Untitled Submenu" }).submenu), row.group);
        front.modifierKeys.held = ModifierMask::none;
        home->entries.front().target->invoke();
    }
    EXPECT_EQ(machine.workspace.log, (Lines { "open file:///Home", "open file:///Home" }));
}

TEST_F(EntryMenuTest, DroppedFilesGoIntoTheFolderAndReplaceNothingUnasked)
{
    machine.files.addFile("/b.txt");
    machine.files.addFile("/Home/a.txt");
    launchWith({ fileItem("/Home") });
    auto const home = entryAt({ "Home" });
    ASSERT_EQ(home.subject.menus->folderOf(home.subject), Url::fromPath("/Home"));
    struct Row {
        std::vector<char const*> files;
        FileTransfer how;
        std::vector<std::size_t> answers;
        Lines done;
        std::string told; ///< the last alert's text
    };
    Row const rows[] = {
        { { "/b.txt" }, FileTransfer::copy, {}, { "copy file:///b.txt to file:///Home/b.txt" }, "" },
        { { "/a.txt", "/b.txt" }, FileTransfer::move, { 1 }, { "move file:///b.txt to file:///Home/b.txt" }, "The one that is there goes to the Trash." },
        { { "/a.txt" }, FileTransfer::link, { 0 }, { "trash file:///Home/a.txt", "link file:///a.txt to file:///Home/a.txt" },
            "The one that is there goes to the Trash." },
        { { "/Home/a.txt" }, FileTransfer::move, {}, {}, "" },
        { { "/Home" }, FileTransfer::move, {}, {}, "“Home”: It cannot be put into itself.\n" },
    };
    for (auto const& row : rows) {
        machine.workspace.log.clear();
        front.alerts.shown.clear();
        front.alerts.answers = row.answers;
        std::vector<Url> files;
        for (auto const* file : row.files)
            files.push_back(Url::fromPath(file));
        home.subject.menus->drop(files, Url::fromPath("/Home"), row.how);
        machine.time.runTasks();
        EXPECT_EQ(machine.workspace.log, row.done);
        EXPECT_EQ(front.alerts.shown.empty() ? "" : front.alerts.shown.back().informativeText, row.told);
    }
    machine.workspace.transferring = Failure { std::string("No room.") };
    home.subject.menus->drop({ Url::fromPath("/b.txt") }, Url::fromPath("/Home"), FileTransfer::copy);
    machine.time.runTasks();
    EXPECT_EQ(front.alerts.shown.back().message, "Some files could not be put into “Home”.");
}

TEST_F(EntryMenuTest, FilesDroppedOnTheIconOrTheCornerAreAddedToTheItems)
{
    front.menuBars.add(7, { 0, 1056, 1920, 24 });
    Preferences(machine.defaults).setReplacesAppleMenu(true);
    launchWith({});
    machine.time.advance(std::chrono::seconds(1));
    front.statusBar.drop({ Url::fromPath("/a.txt") });
    front.panels.shown().at(0)->content->drop({ Url::fromPath("/Home") });
    machine.time.runTasks();
    EXPECT_TRUE(machine.files.nodes.contains("/data/Items/a.txt"));
    EXPECT_TRUE(machine.files.nodes.contains("/data/Items/Home"));
}

} // namespace
} // namespace zv
