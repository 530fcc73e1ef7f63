#include "cli/MenuSession.h"
#include "tests/app/menu/MenuBench.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Reader = fakes::FakeFolderReader;

struct MenuSessionTest : testing::Test, MenuBench {
    MenuSessionTest()
    {
        files.addFolder("/a");
        reader->folders["/a"] = { Reader::folder("b") };
        reader->folders["/a/b"] = { Reader::folder("c") };
        reader->folders["/a/b/c"] = { { "d" } };
    }
    MenuItem grouped(MenuItem child)
    {
        auto group = MenuItem::ofKind(MenuItemKind::submenu);
        group.children = { std::move(child) };
        return group;
    }
    int depthFilled(int levels)
    {
        auto const menu = session.build({ grouped(fileItem("/a")) }, OptionKey::released);
        session.openSubmenus(*menu, levels);
        int filled = 0;
        for (auto at = menu->entries[0].submenu->entries[0].submenu; at && !isLoading(*at); at = at->entries[0].submenu)
            ++filled;
        return filled;
    }

    int turns = 0;
    std::chrono::milliseconds limit {};
    MenuSession session { builder, [this](auto const& isDone, auto allowed) {
                             ++turns;
                             limit = allowed;
                             turn();
                             EXPECT_TRUE(isDone());
                         } };
};

TEST_F(MenuSessionTest, OpensAsManyLevelsAsWantedGroupsNotCounted)
{
    EXPECT_EQ(depthFilled(0), 0);
    EXPECT_EQ(depthFilled(1), 1);
    EXPECT_EQ(depthFilled(2), 2);
    EXPECT_EQ(depthFilled(9), 3);
    EXPECT_EQ(turns, 0) << "what is at hand is not waited for";
}

TEST_F(MenuSessionTest, WaitsForWhatTakesTimeOnceALevel)
{
    reader->remote = { "/a" };
    reader->folders["/r"] = { { "x" } };
    reader->remote.insert("/r");
    auto const menu = session.build({ fileItem("/a"), fileItem("/r") }, OptionKey::released);
    session.openSubmenus(*menu, 2);
    EXPECT_EQ(linesOf(*menu->entries[0].submenu), MenuBench::Lines { "b >" });
    EXPECT_EQ(linesOf(*menu->entries[1].submenu), MenuBench::Lines { "x" });
    EXPECT_EQ(turns, 1) << "both were waited for together";
    EXPECT_EQ(limit, std::chrono::seconds(2));
}

TEST_F(MenuSessionTest, WaitsForTheOneThatIsAskedForUntilItSaysWhatBecameOfIt)
{
    reader->remote = { "/a" };
    auto const menu = session.build({ fileItem("/a") }, OptionKey::released);
    session.open(*menu->entries[0].submenu);
    EXPECT_EQ(linesOf(*menu->entries[0].submenu), MenuBench::Lines { "b >" });
    EXPECT_GT(limit, std::chrono::seconds(10)) << "so long a folder may be silent";
}

} // namespace
} // namespace zv
