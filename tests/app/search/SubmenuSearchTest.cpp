#include "app/search/SubmenuSearch.h"
#include "app/menu/MenuSearch.h"
#include "app/search/FolderWalk.h"
#include "tests/app/shell/ProgramFixture.h"

namespace zv {
namespace {

using Kind = MenuItemKind;
using Reader = fakes::FakeFolderReader;

constexpr char const* chosenFile = "/data/Search/Chosen.plist";

/// The whole program, whose menu is searched.
struct SubmenuSearchTest : ProgramFixture {
    void SetUp() override
    {
        auto& folders = machine.folders->folders;
        folders["/docs"] = { Reader::folder("Taxes"), { "tax.txt" }, { "link", { true, false } }, Reader::folder("Server"), Reader::package("Tax.app") };
        folders["/docs/Taxes"] = { { "return-*[cmd+opt+X]*.txt" }, { "-***" }, Reader::folder("Taxation") };
        folders["/docs/Taxes/Taxation"] = { { "taxed.txt" } };
        folders["/docs/Tax.app"] = { { "tax inside" } };
        machine.folders->remote = { "/docs/Server" };
        machine.files.addFolder("/docs");
        machine.files.addLink("/docs/link", "/docs");
        folders["/docs/link"] = folders["/docs"];
        machine.folders->folders["/data/Items"] = { { "Tax item" }, { "Tax gone", { false, false, FileFault::leadsNowhere } } };
        auto documents = fileItem("/docs");
        documents.title = "Documents";
        documents.scanDepth = 1;
        auto group = item(Kind::submenu);
        group.title = "Group";
        group.children = { documents, item(Kind::sleep, 'e'), item(Kind::zantheVellItems) };
        folders["/"] = { { "Tax of the whole disk" } };
        machine.files.addFolder("/");
        machine.files.addFolder("/data/Items");
        auto deep = item(Kind::submenu);
        deep.title = "Deep";
        deep.children = { fileItem("/data/Items") };
        group.children.push_back(deep);
        launchWith({ group, fileItem("/"), item(Kind::restart) });
    }
    /// Opens the menu anew and finds the titles, each with its way.
    Lines find(std::string const& text, std::size_t matches = 0)
    {
        opened = &menu();
        search = opened->searchBelow(*opened);
        search->onFound = [this](MenuSearch::Found found) { last = std::move(found); };
        search->find(text, matches);
        machine.time.runTasks();
        EXPECT_TRUE(last.isFinal);
        return shown();
    }
    Lines shown() const
    {
        Lines lines;
        for (auto const& entry : last.entries)
            lines.push_back(entry.visibleTitle() + " " + entry.way->spoken);
        return lines;
    }

    Menu* opened = nullptr;
    std::shared_ptr<MenuSearch> search;
    MenuSearch::Found last;
};

TEST_F(SubmenuSearchTest, FindsWhatTheSubmenusBelowShow)
{
    auto const rows = std::to_array<std::tuple<std::string, std::size_t, Lines>>({
        { "tax", 0,
            { "Tax item in Group, Zanthe Vell Items", "Tax.app in Group, Documents", "tax.txt in Group, Documents", "Taxes in Group, Documents",
                "Taxation in Group, Documents, Taxes" } }, // not deeper than the menu, not into applications, each once
        { "sle", 7, { "Sleep in Group" } },
        { "sle", 8, {} }, // enough of the menu's own
        { "return", 0, { "return.txt in Group, Documents, Taxes" } },
        { "", 0, {} },
        { "docu", 0, { "Documents in Group" } },
    });
    for (auto const& [text, matches, lines] : rows)
        EXPECT_EQ(find(text, matches), lines) << text;
    EXPECT_EQ(machine.folders->readings.count("/docs/Server"), 0U) << "nothing remote";
    EXPECT_EQ(last.entries.at(0).way->text, "\u2068Group\u2069");
    EXPECT_NE(last.entries.at(0).submenu, nullptr) << "found entries are like any other";
    find("sle");
    EXPECT_EQ(last.entries.at(0).keyEquivalent, "") << "its shortcut acts at its own place";

    for (int i = 0; i < 500; ++i)
        machine.folders->folders["/docs"].push_back({ "many " + std::to_string(i) });
    EXPECT_EQ(find("many").size(), SubmenuSearch::mostFound);
}

TEST(FolderWalk, GoesFolderByFolderAndHasAnEnd)
{
    auto const reader = std::make_shared<Reader>();
    reader->folders["/a"] = { Reader::folder("b") };
    reader->folders["/a/b"] = std::vector<Reader::Child>(FolderWalk::mostEntries, { "file" });
    reader->folders["/a/b"].push_back(Reader::folder("c"));
    FolderWalk walk(reader, std::make_shared<fakes::FakeFileSystem>(), HiddenFiles::skipped);
    std::chrono::milliseconds const none { 0 };
    EXPECT_EQ(walk.step({ { Url::fromPath("/a"), 9, {} } }, none)->size(), 1U);
    EXPECT_FALSE(walk.isDone()) << "no time was left for the next";
    EXPECT_EQ(walk.step({}, none)->size(), 1U);
    EXPECT_TRUE(walk.isDone()) << "enough was read";
}

TEST_F(SubmenuSearchTest, FindsWhatAScriptGaveLastAndRunsNone)
{
    machine.files.addFile("/data/.Items/a.menu.sh");
    machine.tools->answers["/data/.Items/a.menu.sh"] = fakes::FakeToolRunner::printing("taxi | href=x:y\nTax\nmore\n--taxis | href=x:z");
    auto script = fileItem("/data/.Items/a.menu.sh");
    script.title = "Script";
    launchWith({ script });
    EXPECT_EQ(find("taxi"), Lines {});
    EXPECT_TRUE(machine.tools->requests.empty());
    firstList();
    EXPECT_EQ(find("tax"), (Lines { "taxi in Script", "taxis in Script, more" }));
    EXPECT_EQ(machine.tools->requests.size(), 1U);
}

TEST_F(SubmenuSearchTest, AnswersTheLastTextAloneAndReadsOnceUntilTheMenuCloses)
{
    find("tax");
    auto const readings = machine.folders->readings;
    int answers = 0;
    search->onFound = [&](MenuSearch::Found const& found) { ++answers, last = found; };
    search->find("return", 0);
    search->find("taxa", 0);
    machine.time.runTasks();
    EXPECT_EQ(shown(), Lines { "Taxation in Group, Documents, Taxes" });
    EXPECT_EQ(answers, 1) << "an answer to an earlier text never comes";
    EXPECT_EQ(machine.folders->readings, readings) << "what was read serves the next text";

    search = opened->searchBelow(*opened);
    std::size_t found = 0;
    search->onFound = [&](MenuSearch::Found const& more) {
        EXPECT_GE(more.entries.size(), found) << "an answer that was begun earlier and ends later counts no more";
        found = more.entries.size();
    };
    search->find("tax", 0);
    machine.time.runTasksBackwards();
    EXPECT_EQ(found, 5U);

    machine.folders->readings.clear();
    search = opened->searchBelow(*opened);
    search->find("tax", 0);
    auto const pending = machine.time.pendingBackground();
    search->find("taxa", 0);
    EXPECT_EQ(machine.time.pendingBackground(), pending + 1) << "a ranking, and no second walk";
    search = nullptr;
    machine.time.runTasks();
    EXPECT_TRUE(machine.folders->readings.empty()) << "a closed menu searches nothing";
}

TEST_F(SubmenuSearchTest, WhatWasChosenLastComesFirstUnlessItIsNotToBeRemembered)
{
    auto const choose = [this](std::string const& text) { find(text), last.entries.at(0).target->invoke(), machine.time.runTasks(); };
    choose("tax.txt");
    choose("Tax.app");
    EXPECT_EQ(find("tax").at(0), "Tax.app in Group, Documents");
    EXPECT_EQ(find("tax").at(1), "tax.txt in Group, Documents");
    ASSERT_TRUE(machine.files.exists(Url::fromPath(chosenFile)));
    app.reset();
    launch();
    EXPECT_EQ(find("tax").at(0), "Tax.app in Group, Documents") << "also after a new start";

    app->delegate().preferences().setRemembersChoices(false);
    machine.time.runTasks();
    EXPECT_FALSE(machine.files.exists(Url::fromPath(chosenFile))) << "turned off, all is forgotten";
    choose("Tax.app");
    EXPECT_EQ(find("tax").at(0), "Tax item in Group, Zanthe Vell Items");
    EXPECT_FALSE(machine.files.exists(Url::fromPath(chosenFile)));
}

} // namespace
} // namespace zv
