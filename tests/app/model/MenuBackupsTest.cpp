#include "app/model/MenuBackups.h"

#include "app/model/MenuDocument.h"
#include "tests/app/model/ModelFixture.h"
#include "tests/fakes/FakeTime.h"

#include <algorithm>

namespace zv {

namespace {

using namespace std::chrono_literals;

struct MenuBackupsTest : ModelFixture {
    fakes::FakeTime time;
    Url folder = Url::fromPath("/data/Backups");

    [[nodiscard]] MenuBackups make() { return { { files, time }, folder }; }
    static PropertyList menu(std::string const& title) { return toPropertyList(std::vector { titled(title) }); }
    [[nodiscard]] std::string titleIn(MenuBackup const& backup) const { return *readMenuDocument(files.read(backup.file).value(), services)->items[0].title; }
};

} // namespace

TEST_F(MenuBackupsTest, KeepsTheLastTenNewestFirst)
{
    auto backups = make();
    EXPECT_TRUE(backups.list().empty());
    for (int i = 0; i < 13; ++i) {
        EXPECT_TRUE(backups.menuWillBeOverwritten(menu(std::to_string(i)), true));
        time.advance(1min);
    }
    auto const kept = backups.list();
    ASSERT_EQ(kept.size(), MenuBackups::maximumCount);
    EXPECT_EQ(titleIn(kept.front()), "12");
    EXPECT_EQ(titleIn(kept.back()), "3");
    EXPECT_TRUE(std::is_sorted(kept.begin(), kept.end(), [](auto const& a, auto const& b) { return a.time > b.time; }));
}

TEST_F(MenuBackupsTest, OneAMinuteIsDueAlsoAfterARestart)
{
    auto backups = make();
    EXPECT_TRUE(backups.isDue());
    EXPECT_TRUE(backups.menuWillBeOverwritten(menu("a"), true));
    time.advance(59s);
    EXPECT_FALSE(backups.isDue());
    EXPECT_FALSE(make().isDue()) << "known from the files";
    time.advance(1s);
    EXPECT_TRUE(backups.isDue());
    EXPECT_TRUE(make().isDue());
}

TEST_F(MenuBackupsTest, AClockThatWentBackDoesNotStopBackups)
{
    auto backups = make();
    time.advance(24h);
    EXPECT_TRUE(backups.menuWillBeOverwritten(menu("a"), true));
    fakes::FakeTime earlier;
    MenuBackups corrected({ files, earlier }, folder);
    EXPECT_TRUE(corrected.isDue());
    for (int i = 0; i < 11; ++i) {
        EXPECT_TRUE(corrected.menuWillBeOverwritten(menu(std::to_string(i)), true));
        EXPECT_EQ(titleIn(corrected.list().front()), std::to_string(i)) << "nor push out what is made now";
        earlier.advance(1min);
    }
}

TEST_F(MenuBackupsTest, WhatIsUnreadableIsKeptApartAndNeverCounts)
{
    auto backups = make();
    EXPECT_TRUE(backups.menuWillBeOverwritten("not a menu", false));
    EXPECT_TRUE(backups.menuWillBeOverwritten("nor this", false));
    EXPECT_TRUE(backups.isDue()) << "a readable one is still due";
    for (int i = 0; i < 12; ++i) {
        time.advance(1min);
        EXPECT_TRUE(backups.menuWillBeOverwritten(menu("m"), true));
    }
    auto const kept = backups.list();
    EXPECT_EQ(std::count_if(kept.begin(), kept.end(), [](auto const& each) { return !each.isReadable; }), 2);
    EXPECT_EQ(kept.size(), 12U);
}

TEST_F(MenuBackupsTest, OtherFilesInTheFolderAreLeftAlone)
{
    std::vector<std::string> const others { "notes.txt", "Menu .plist", "Menu 2026-99-01 10.00.00 UTC.plist", "Menu 9999-01-01 10.00.00 UTC.plist",
        "Menu 2026-01-01 10.00.00 UTC.txt", "My Menu 2026-01-01 10.00.00 UTC.plist" };
    for (auto const& name : others)
        files.addFile("/data/Backups/" + name);
    auto backups = make();
    EXPECT_TRUE(backups.list().empty());
    for (int i = 0; i < 12; ++i) {
        time.advance(1min);
        EXPECT_TRUE(backups.menuWillBeOverwritten(menu("m"), true));
    }
    for (auto const& name : others)
        EXPECT_TRUE(files.exists(folder.appending(name))) << name;
}

TEST_F(MenuBackupsTest, NamesTellTheTimeInUtc)
{
    files.addFile("/data/Backups/Menu 2026-02-03 04.05.06 UTC.plist");
    auto const kept = make().list();
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].time, WallTime(std::chrono::seconds(1'770'091'506)));
}

TEST_F(MenuBackupsTest, AFolderThatCannotBeWrittenIsSaid)
{
    files.addFolder("/data");
    files.readOnly.insert("/data");
    auto backups = make();
    EXPECT_EQ(backups.menuWillBeOverwritten(menu("a"), true).error(), "could not keep a copy of the menu in /data/Backups: Read-only file system");
    EXPECT_TRUE(backups.isDue()) << "so that the next save tries again";
}

} // namespace zv
