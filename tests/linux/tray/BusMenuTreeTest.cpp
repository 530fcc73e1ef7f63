#undef QT_NO_CAST_FROM_ASCII // plain literals keep the tables readable

#include "platform/linux/tray/BusMenuTree.h"

#include "tests/fakes/FakeLists.h"
#include "tests/linux/menu/FillingMenu.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

QStringList labels(BusMenuLayout const& layout)
{
    QStringList all;
    for (auto const& child : layout.children)
        all.append(child.properties.value(QStringLiteral("label")).toString());
    return all;
}

class BusMenuTreeTest : public testing::Test {
protected:
    void SetUp() override { ensureApplication(); }

    std::shared_ptr<FillingMenu> sub = FillingMenu::make({ leaf("one"), leaf("two") });
    std::shared_ptr<FillingMenu> top = FillingMenu::make({ leaf("first"), branch("folder", sub) });
    BusMenuTree tree { top->menu };
};

TEST_F(BusMenuTreeTest, NeverServesAnEmptyTopMenu)
{
    EXPECT_EQ(labels(tree.layout(0, -1, {})), (QStringList { "first", "folder" }));
    EXPECT_EQ(top->updates, 1);
    (void)tree.layout(0, -1, {});
    EXPECT_EQ(top->updates, 1) << "filled once until it is about to show";
    EXPECT_EQ(sub->updates, 0);
}

TEST_F(BusMenuTreeTest, FillsASubmenuOnlyWhenItIsAboutToShow)
{
    auto const layout = tree.layout(0, -1, {});
    auto const& folder = layout.children[1];
    EXPECT_EQ(folder.properties.value("children-display").toString(), "submenu");
    EXPECT_EQ(labels(folder), QStringList { "Loading…" });

    EXPECT_TRUE(tree.aboutToShow(folder.id));
    EXPECT_EQ(labels(tree.layout(folder.id, -1, {})), (QStringList { "one", "two" }));
    sub->next.push_back(leaf("three"));
    EXPECT_TRUE(tree.aboutToShow(folder.id));
    EXPECT_EQ(labels(tree.layout(folder.id, -1, {})), (QStringList { "one", "two", "three" })) << "each opening sees what is there now";
    EXPECT_FALSE(tree.aboutToShow(layout.children[0].id));
    EXPECT_FALSE(tree.aboutToShow(4711));
}

TEST_F(BusMenuTreeTest, AGroupThatIsFilledAlreadyIsServedAtOnce)
{
    MenuEntry group;
    group.title = "group";
    group.submenu = std::make_shared<Menu>();
    group.submenu->entries = { leaf("inside") };
    top->next = { group };
    auto const layout = tree.layout(0, -1, {});
    EXPECT_EQ(labels(layout.children[0]), QStringList { "inside" });
    EXPECT_FALSE(tree.aboutToShow(layout.children[0].id));
}

TEST_F(BusMenuTreeTest, DescribesEntriesInTheTermsOfTheBus)
{
    auto plain = leaf("R&D _under_score");
    auto keys = leaf("Quit");
    keys.keyEquivalent = "q";
    keys.keyEquivalentModifierMask = ModifierMask::command | ModifierMask::control;
    auto hint = leaf("Notes");
    hint.attributedTitle = AttributedTitle { "Notes", false, "⌥F5", 100 };
    auto marked = leaf("Marked");
    marked.isMarked = true;
    auto pictured = leaf("Pictured");
    pictured.image = std::make_shared<fakes::FakeImage>("folder");
    top->next = { plain, MenuEntry::separator(), keys, hint, marked, pictured, MenuEntry::disabled("No Items") };

    auto const entries = tree.layout(0, 1, {}).children;
    using Shortcut = QList<QStringList>;
    EXPECT_EQ(entries[0].properties, (QVariantMap { { "label", "R&D __under__score" } }));
    EXPECT_EQ(entries[1].properties, (QVariantMap { { "type", "separator" } }));
    EXPECT_EQ(entries[2].properties.value("shortcut").value<Shortcut>(), (Shortcut { { "Control", "Super", "Q" } }));
    EXPECT_EQ(entries[3].properties.value("shortcut").value<Shortcut>(), (Shortcut { { "Alt", "F5" } }));
    EXPECT_EQ(entries[4].properties.value("toggle-type").toString(), "checkmark");
    EXPECT_EQ(entries[4].properties.value("toggle-state").toInt(), 1);
    EXPECT_EQ(entries[5].properties.value("icon-name").toString(), "folder");
    EXPECT_EQ(entries[6].properties.value("enabled"), QVariant(false));
}

TEST_F(BusMenuTreeTest, AnUnavailableEntrySaysWhyInALineBelowIt)
{
    auto unavailable = MenuEntry::disabled("Printers");
    unavailable.toolTip = "“Printer Settings” is not installed.";
    top->next = { unavailable };
    auto const entry = tree.layout(0, -1, {}).children[0];
    EXPECT_EQ(entry.properties.value("children-display").toString(), "submenu");
    ASSERT_EQ(entry.children.size(), 1);
    EXPECT_EQ(entry.children[0].properties.value("label").toString(), "“Printer Settings” is not installed.");
    EXPECT_EQ(entry.children[0].properties.value("enabled"), QVariant(false));
    EXPECT_EQ(tree.target(entry.id), nullptr);
}

TEST_F(BusMenuTreeTest, GivesAsManyLevelsAndPropertiesAsAreAskedFor)
{
    EXPECT_TRUE(tree.layout(0, 0, {}).children.isEmpty());
    auto const oneLevel = tree.layout(0, 1, { "label" });
    ASSERT_EQ(oneLevel.children.size(), 2);
    EXPECT_TRUE(oneLevel.children[1].children.isEmpty());
    EXPECT_EQ(oneLevel.children[1].properties.keys(), QStringList { "label" });
}

TEST_F(BusMenuTreeTest, AClickOnWhatWasJustReplacedStillCounts)
{
    auto const before = tree.layout(0, -1, {}).children[0].id;
    auto const wanted = top->next[0].target;
    top->next = { leaf("other") };
    tree.aboutToShow(0);
    EXPECT_EQ(tree.target(before), wanted);
    auto const after = tree.layout(0, -1, {}).children[0].id;
    EXPECT_NE(before, after);
    EXPECT_EQ(tree.target(after), top->next[0].target);
    tree.aboutToShow(0);
    EXPECT_EQ(tree.target(before), nullptr);
}

TEST_F(BusMenuTreeTest, TellsOfAnEntryThatFillsLaterThanItOpened)
{
    std::vector<int> changed;
    tree.onChanged = [&](int id) { changed.push_back(id); };
    auto const folder = tree.layout(0, -1, {}).children[1].id;
    sub->menu->didRefill();
    EXPECT_TRUE(changed.empty()) << "nobody looks at it yet";
    tree.aboutToShow(folder);
    sub->menu->entries = { leaf("late") };
    sub->menu->didRefill();
    EXPECT_EQ(changed, std::vector<int> { folder });
    EXPECT_EQ(labels(tree.layout(folder, -1, {})), QStringList { "late" });
    tree.closed(folder);
    EXPECT_EQ(sub->closings, 1);
}

TEST_F(BusMenuTreeTest, AMenuThatOutlivesItIsLeftAlone)
{
    {
        BusMenuTree shortLived(top->menu);
        shortLived.aboutToShow(shortLived.layout(0, -1, {}).children[1].id);
    }
    sub->menu->didRefill();
}

} // namespace
} // namespace zv
