#include "base/Translation.h"
#include "cli/EntryPath.h"
#include "tests/cli/CommandLineFixture.h"

namespace zv {
namespace {

struct EntryPathTest : testing::Test {
    EntryPathTest()
    {
        menu->entries = { MenuEntry::disabled("Café"), action("Café"), MenuEntry::separator(), action("r&d"), action("R&D"), MenuEntry::disabled("Gone") };
        for (auto const* title : { "Home", "Shortcuts", "Server" }) {
            MenuEntry entry;
            entry.title = title;
            entry.submenu = std::make_shared<Menu>(title);
            menu->entries.push_back(entry);
        }
    }
    static MenuEntry action(std::string title)
    {
        MenuEntry entry;
        entry.title = std::move(title);
        entry.target = std::make_shared<MenuActionTarget>([] {});
        return entry;
    }
    static MenuEntry unavailable(std::string title, std::string reason)
    {
        auto entry = MenuEntry::disabled(std::move(title));
        entry.toolTip = std::move(reason);
        return entry;
    }
    static void fill(Menu& opened)
    {
        if (opened.title == "Home")
            opened.entries = { action("a.txt") };
        else if (opened.title == "Shortcuts")
            opened.entries = { unavailable("Shortcuts Unavailable", "Broken.") };
        else
            opened.entries = { unavailable("It is silent.", "It is silent.") };
    }
    /// The entry found, or why there is none; submenus fill when they open.
    std::string find(std::vector<std::string> const& titles)
    {
        auto const entry = entryAt(menu, titles, fill);
        return entry ? entry->title + (entry->enabled ? "" : " (disabled)") : entry.error();
    }
    std::shared_ptr<Menu> menu = std::make_shared<Menu>();
};

TEST_F(EntryPathTest, FollowsTheTitles)
{
    struct Row {
        std::vector<std::string> titles;
        std::string found, why;
    };
    Row const rows[] = {
        { { "Café" }, "Café", "the one that can be chosen" },
        { { "CAFE" }, "Café", "case and accents may differ" },
        { { "R&D" }, "R&D", "any characters" },
        { { "Gone" }, "Gone (disabled)", "better than nothing" },
        { { "Home" }, "Home", "a submenu itself" },
        { { "Home", "a.txt" }, "a.txt", "it opens on the way" },
        { { "Home", "b.txt" }, "there is no “b.txt” in “Home”", "not in there" },
        { { "Shortcuts", "X" }, "there is no “X” in “Shortcuts”: Shortcuts Unavailable: Broken.", "for a reason" },
        { { "Server", "X" }, "there is no “X” in “Server”: It is silent.", "a reason that is the title is said once" },
        { { "b.txt" }, "there is no “b.txt” in the menu", "not at all" },
        { { "R&D", "a.txt" }, "“R&D” has no submenu", "a command" },
        { { "" }, "there is no “” in the menu", "separators have no title to match" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(find(row.titles), row.found);
    }
}

using PerformCommandTest = CommandLineFixture;

TEST_F(PerformCommandTest, ChoosesWhatCanBeChosenAndSaysWhyNotElse)
{
    auto group = MenuItem::ofKind(MenuItemKind::submenu);
    group.title = "Group";
    group.children = { MenuItem::ofKind(MenuItemKind::sleep), MenuItem::ofKind(MenuItemKind::restart) };
    auto file = MenuItem::ofKind(MenuItemKind::fsObject);
    file.location = ItemLocation { .path = "/here/a.txt" };
    addFile("/here/a.txt", "");
    auto retired = MenuItem::ofKind(MenuItemKind::openWith);
    retired.title = "Old";
    (void)defaults.setObject(MenuStore::defaultsKey, toPropertyList(std::vector { group, file, retired }));

    EXPECT_EQ(run({ "perform", "Group" }), (Outcome { 1, "", "zanthe-vell: “Group” is a submenu; name an entry of it\n" }));
    EXPECT_TRUE(run({ "perform", "Old" }).err.starts_with("zanthe-vell: “Old” cannot be chosen: "));
    for (auto const* title : { "Sleep", "Schlaf" }) {
        translateBy([](Sentence const& sentence, char const*, unsigned long) { return std::string(std::string(sentence.english) == "Sleep" ? "Schlaf" : ""); });
        EXPECT_EQ(run({ "perform", "Group", title }), (Outcome { 0, "", "" })) << "in English, too, as a key binding may have it";
    }
    translateBy(nullptr);
    EXPECT_EQ(run({ "perform", "--command", "a.txt" }), (Outcome { 0, "", "" }));
    machine.sessionEvents.outcomes["ask to restart"] = { SessionEventOutcome::State::needsConfirmation };
    (void)run({ "perform", group.id.toString(), group.children[1].id.toString() }); // as bindings name them
    EXPECT_EQ(machine.sessionEvents.sent, (std::vector<std::string> { "sleep", "sleep", "ask to restart" })) << "nobody said yes";
    EXPECT_EQ(machine.workspace.log, (std::vector<std::string> { "reveal file:///here/a.txt" }));
}

struct AddCommandTest : CommandLineFixture {
    AddCommandTest()
    {
        addFile("/here/Report.pdf", "");
        files.addFolder("/here/Work");
    }
    std::string target(std::string const& name)
    {
        auto const found = files.nodes.find("/data/Items/" + name);
        return found == files.nodes.end() ? "none" : found->second.target;
    }
};

TEST_F(AddCommandTest, AddsFilesFromWhereTheUserIs)
{
    EXPECT_EQ(run({ "add", "Report.pdf", "./Work/", "../here//Report.pdf", "." }), (Outcome { 0, "", "" }));
    EXPECT_EQ(target("Report.pdf"), "/here/Report.pdf");
    EXPECT_EQ(target("Report 2.pdf"), "/here/Report.pdf");
    EXPECT_EQ(target("Work"), "/here/Work");
    EXPECT_EQ(target("here"), "/here");
}

TEST_F(AddCommandTest, SaysInOneLineWhatWentWrong)
{
    EXPECT_EQ(run({ "add", "gone", "Work" }),
        (Outcome { 1, "", "zanthe-vell: 1 of 2 items could not be added to Zanthe Vell Items. “gone” — No such file or directory\n" }));
    EXPECT_EQ(target("Work"), "/here/Work");
    EXPECT_EQ(run({ "add" }).status, 2);
    files.erase("/data/Items");
    addFile("/data/Items", "a file");
    EXPECT_EQ(run({ "add", "Work" }), (Outcome { 1, "", "zanthe-vell: The Zanthe Vell Items folder could not be created. /data/Items File exists\n" }));
}

TEST_F(AddCommandTest, WithAlertTheRunningProgramAddsAndTells)
{
    addFile("/here/\xff.txt", "");
    EXPECT_EQ(run({ "add", "--alert", "gone", "\xff.txt" }), (Outcome { 0, "", "" }));
    EXPECT_EQ(program.asked, (std::vector<std::string> { "add file:///here/gone file:///here/%FF.txt" })) << "any name reaches it";
    EXPECT_EQ(target("gone"), "none");

    program.state = Failure { "Zanthe Vell is not running." };
    EXPECT_EQ(run({ "add", "--alert", "Report.pdf" }), (Outcome { 0, "", "" })) << "without it, it is added all the same";
    EXPECT_EQ(target("Report.pdf"), "/here/Report.pdf");
    EXPECT_EQ(run({ "add", "--alert", "gone" }).status, 1);
    hasDisplay = true;
    EXPECT_EQ(run({ "add", "--alert", "gone" }), (Outcome { 1, "", "" })) << "a window tells";
    EXPECT_EQ(presented.back(), "“gone” could not be added to Zanthe Vell Items.");
}

} // namespace
} // namespace zv
