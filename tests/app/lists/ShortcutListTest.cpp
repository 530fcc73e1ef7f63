#include "tests/app/lists/ListsFixture.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Titles = std::vector<std::string>;
using fakes::FakeToolRunner;
using namespace std::chrono_literals;

constexpr auto idA = "6D0A7CC2-1E0C-4E0F-9D8C-0B7C1B0F8A01";
constexpr auto folderId = "6D0A7CC2-1E0C-4E0F-9D8C-0B7C1B0F8A03";
constexpr auto ungroupedList = "list|--folder-name|none|--show-identifiers";
constexpr auto folderList = "list|--folders|--show-identifiers";

struct ShortcutListTest : testing::Test, ListsFixture {
    ShortcutListTest() { tools->answers[ungroupedList] = tools->answers[folderList] = FakeToolRunner::printing(""); }
    void putShortcuts()
    {
        tools->answers[ungroupedList] = FakeToolRunner::printing(std::string("Loose (") + idA + ")\n");
        tools->answers[folderList] = FakeToolRunner::printing(std::string("Work (") + folderId + ")\n");
        tools->answers["list|--folder-name|Work|--show-identifiers"] = FakeToolRunner::printing("");
    }
    void open()
    {
        items.reset();
        list.fill([this](ListContent content) { items = std::get<std::vector<MenuEntry>>(std::move(content)); });
    }

    DynamicList& list = *lists.listOf(MenuItemKind::shortcuts);
    std::optional<std::vector<MenuEntry>> items; ///< nothing while the list loads
};

TEST_F(ShortcutListTest, LoadsOnceThenShowsAtOnceWhatIsKnown)
{
    putShortcuts();
    open();
    EXPECT_FALSE(items);
    EXPECT_TRUE(tools->runs.empty()) << "nothing runs on the main thread";
    time.runTasks();
    ASSERT_TRUE(items);
    EXPECT_EQ(titlesOf(*items), (Titles { "Work", "Loose" }));
    EXPECT_EQ(titlesOf(items->at(0).submenu->entries), Titles { "No Shortcuts" });
    items->at(1).target->invoke();
    EXPECT_EQ(chosen, (Titles { std::string(idA) + "|Loose" }));

    tools->answers[folderList] = FakeToolRunner::printing("");
    time.advance(31s);
    list.refresh();
    open();
    EXPECT_EQ(items->size(), 2u) << "the known list, though a load is under way";
    time.runTasks();
    EXPECT_EQ(items->size(), 2u) << "an open list does not change under the pointer";
    open();
    EXPECT_EQ(items->size(), 1u) << "the fresh list at the next opening";
}

TEST_F(ShortcutListTest, LoadsAtMostEveryThirtySeconds)
{
    struct Row {
        std::chrono::milliseconds later;
        std::size_t loads;
        std::string why;
    };
    list.refresh();
    list.refresh();
    EXPECT_EQ(time.pendingBackground(), 1u) << "one load at a time";
    time.runTasks();
    for (auto const& row : { Row { 29'999ms, 0, "fresh for thirty seconds" }, Row { 1ms, 1, "thirty seconds later" } }) {
        time.advance(row.later);
        list.refresh();
        EXPECT_EQ(time.pendingBackground(), row.loads) << row.why;
    }
}

TEST_F(ShortcutListTest, SaysWhyThereAreNone)
{
    open();
    time.runTasks();
    EXPECT_TRUE(items->empty()) << "none made";

    tools->answers[ungroupedList] = {};
    time.advance(31s);
    list.refresh();
    time.runTasks();
    open();
    ASSERT_EQ(titlesOf(*items), Titles { "Shortcuts Unavailable" });
    EXPECT_FALSE(items->at(0).enabled);
    EXPECT_EQ(items->at(0).toolTip, "The Shortcuts command-line tool is not installed on this Mac.");
}

TEST_F(ShortcutListTest, ALoadThatOutlivesTheListIsForgotten)
{
    open();
    lists = DynamicMenuProvider();
    time.runTasks();
    EXPECT_FALSE(items);
}

} // namespace
} // namespace zv
