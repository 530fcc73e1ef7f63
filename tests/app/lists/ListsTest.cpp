#include "app/menu/MenuIcon.h"
#include "tests/app/lists/ListsFixture.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Kind = MenuItemKind;
using Titles = std::vector<std::string>;
using std::chrono::seconds;

struct AllLists : testing::Test, ListsFixture {
    /// Adds one thing for each list to show.
    void fillTheMachine()
    {
        folders->folders["/data/Items"] = { { "Item" } };
        runningApplications.applications = { { "a", "Application", std::nullopt } };
        volumes.volumes = { { Url::fromPath("/"), "Volume", true } };
        recentServers.servers = { { Url::parse("ftp://server/").value() } };
        networkInterfaces.addresses = { { "eth0", "", "10.0.0.1" } };
        settingsPanes.panes = { { "p", "Pane", Url::fromPath("/p"), Url::fromPath("/p"), "" } };
        tools->answers["list|--folder-name|none|--show-identifiers"] = fakes::FakeToolRunner::printing("Shortcut (6D0A7CC2-1E0C-4E0F-9D8C-0B7C1B0F8A01)\n");
        tools->answers["list|--folders|--show-identifiers"] = fakes::FakeToolRunner::printing("");
        tools->answers["-n"] = fakes::FakeToolRunner::printing(" * A (Home)\n");
    }
    Titles titlesInTime(DynamicList& list)
    {
        Titles titles;
        auto const searches = recentFiles.searches.size();
        list.fill([&](ListContent const& content) { std::visit([&](auto const& items) { titles = titlesOf(items); }, content); });
        if (searches < recentFiles.searches.size())
            recentFiles.answer(searches, { { "/" + scopeNames.at(static_cast<std::size_t>(recentFiles.searches.back()->question.scope)) } });
        time.runTasks();
        return titles;
    }

    std::vector<std::string> const scopeNames { "anything", "app", "folder", "document" };
    fakes::FakeIconSource pictures;
    MenuIcon icons { pictures, lists, Url::fromPath("/data/Items"), [] { return true; } };
};

TEST_F(AllLists, EachKindThatFillsItselfHasItsOwn)
{
    struct Row {
        Kind::Case kind;
        std::string title; ///< of the machine's one thing for it
        std::string icon;
        std::string emptyTitle = "No Items";
        std::string noResponseTitle {};
    };
    Row const rows[] = {
        { Kind::zantheVellItems, "Item", "file:/data/Items", "No Items", "This folder did not respond." },
        { Kind::mountedVolumes, "Volume", "volumes" },
        { Kind::recentItems, "anything", "recentItems" },
        { Kind::recentApps, "app", "recentItems" },
        { Kind::recentFolders, "folder", "recentItems" },
        { Kind::recentDocs, "document", "recentItems" },
        { Kind::recentServers, "server", "network" },
        { Kind::runningApplications, "Application", "runningApplications" },
        { Kind::shortcuts, "Shortcut", "shortcuts", "No Shortcuts" },
        { Kind::ipAddress, "10.0.0.1 — eth0", "" },
        { Kind::systemPrefs, "Pane", "systemSettings" },
        { Kind::location, "Home", "networkLocation", "No Locations" },
    };
    fillTheMachine();
    for (int value = 0; value < Kind::fixedCount; ++value) {
        auto const kind = static_cast<Kind::Case>(value);
        SCOPED_TRACE(MenuItemKind(kind).rawValue());
        auto const row = std::find_if(std::begin(rows), std::end(rows), [&](auto const& known) { return known.kind == kind; });
        bool const isList = row != std::end(rows);
        auto* const list = lists.listOf(kind);
        ASSERT_EQ(MenuItemKind(kind).fillsItself(), isList || kind == Kind::fsObject);
        ASSERT_EQ(list != nullptr, isList);
        if (!list)
            continue;
        EXPECT_EQ(list->kind(), kind);
        EXPECT_EQ(titlesInTime(*list), Titles { row->title });
        EXPECT_EQ(list->emptyTitle(), row->emptyTitle);
        EXPECT_EQ(list->noResponseTitle(), row->noResponseTitle);
        auto const icon = icons.iconForKind(kind);
        EXPECT_EQ(icon ? icon->name() : "", row->icon);
    }
}

TEST_F(AllLists, AreRefreshedWhereAMenuHasThem)
{
    auto const refreshed = [&](std::vector<Kind::Case> const& kinds) {
        auto group = MenuItem::ofKind(Kind::submenu);
        for (auto const kind : kinds)
            group.children.push_back(MenuItem::ofKind(kind));
        lists.refresh({ group });
        return std::pair(recentFiles.searches.size(), time.pendingBackground());
    };
    EXPECT_EQ(refreshed({ Kind::sleep, Kind::mountedVolumes }), std::pair(0UL, 0UL));
    EXPECT_EQ(refreshed({ Kind::shortcuts }), std::pair(0UL, 1UL));
    EXPECT_EQ(refreshed({ Kind::recentApps, Kind::shortcuts }), std::pair(1UL, 1UL)) << "one load at a time";
    EXPECT_EQ(recentFiles.searches[0]->question.scope, RecentItemsScope::applications);
}

TEST_F(AllLists, KeepServersWithinTheLimitOfRecentItemsAsItIsNow)
{
    recentServers.servers = { { Url::parse("ftp://a/").value(), 3 }, { Url::parse("ftp://b/").value(), 2 }, { Url::parse("ftp://c/").value(), 1 } };
    preferences.setRecentItemsLimit(2);
    EXPECT_EQ(titlesOf(entries(Kind::recentServers)), (Titles { "a", "b" }));
    preferences.setRecentItemsLimit(0);
    EXPECT_EQ(titlesOf(entries(Kind::recentServers)), (Titles {}));
}

TEST_F(AllLists, ShowTheItemsFolderAsAFolder)
{
    EXPECT_EQ(titlesOf(entries(Kind::zantheVellItems)), (Titles {})) << "nobody has made it yet";
    folders->failures["/data/Items"] = FolderReadFailure::notPermitted;
    EXPECT_EQ(titlesOf(entries(Kind::zantheVellItems)), (Titles { "Items" })) << "the folder itself, with the reason";
    folders->failures.clear();

    folders->folders["/data/Items"] = { { "02)b.txt" }, { "01)z-*[F5]*.txt" }, fakes::FakeFolderReader::folder("sub"), { ".hidden" } };
    EXPECT_EQ(titlesOf(entries(Kind::zantheVellItems)), (Titles { "sub", "z.txt", "b.txt" }));
    EXPECT_EQ(listedFolders.told["/data/Items"], Titles { "01)z-*[F5]*.txt" }) << "and its shortcuts are in use";
    preferences.setSortFoldersFirst(false);
    EXPECT_EQ(titlesOf(entries(Kind::zantheVellItems)), (Titles { "z.txt", "b.txt", "sub" }));
    preferences.setShowHiddenFiles(true);
    EXPECT_EQ(entries(Kind::zantheVellItems).size(), 4u);
}

TEST_F(AllLists, ReadARemoteItemsFolderOffTheMainThread)
{
    folders->remote.insert("/data/Items");
    folders->folders["/data/Items"] = { { "a" } };
    int answers = 0;
    for (int opening = 0; opening < 2; ++opening)
        lists.listOf(Kind::zantheVellItems)->fill([&](auto const&) { ++answers; });
    EXPECT_TRUE(folders->readings.empty());
    EXPECT_EQ(answers, 0);
    time.runTasks();
    EXPECT_EQ(answers, 2);
    EXPECT_EQ(folders->readings["/data/Items"], 1) << "once for all who wait";
}

TEST_F(AllLists, MarkTheCurrentLocationAndSelectTheChosenOne)
{
    tools->answers["-n"] = fakes::FakeToolRunner::printing("   B (Work)\n * A (Home)\n");
    auto const items = shown<MenuEntry>(Kind::location);
    ASSERT_EQ(titlesOf(items), (Titles { "Work", "Home" }));
    EXPECT_FALSE(items[0].isMarked);
    EXPECT_TRUE(items[1].isMarked);
    items[0].target->invoke();
    EXPECT_EQ(chosen, Titles { "B|Work" });
}

} // namespace
} // namespace zv
