#include "app/settings/MenuOutline.h"
#include "tests/app/settings/SettingsFixture.h"
#include "tests/fakes/FakeHotkeys.h"

namespace zv {
namespace {

struct MenuOutlineTest : SettingsFixture {
    MenuOutlineTest()
    {
        source.set({ { { 0, "a" }, { 14, "e" } } });
        store->setItemsSink(&center);
    }
    ~MenuOutlineTest() override { store->setItemsSink(nullptr); }

    static MenuItem withShortcut(char name, char const* key)
    {
        auto item = itemNamed(name);
        item.keyEquivalent = KeyEquivalentSpec { KeyEquivalentSpec::Trigger::character(key) };
        return item;
    }
    [[nodiscard]] std::string badge(MenuItem const& item) const { return outline.row(item).badge; }

    fakes::FakeHotkeyRegistrar registrar;
    fakes::FakeKeyboardLayoutSource source;
    Notifications notifications;
    KeyboardLayout layout { source, notifications };
    HotkeyCenter center { registrar, layout };
    MenuOutline outline { { *store, center } };
};

TEST_F(MenuOutlineTest, NamesWhoHasTheCombination)
{
    auto const commandE = KeyChord { 14, commandKey };
    auto group = itemNamed('g');
    group.kind = MenuItemKind::submenu;
    group.children = { withShortcut('x', "E") };
    auto retired = withShortcut('r', "E");
    retired.kind = MenuItemKind::moveTo;
    ASSERT_TRUE(retired.kind.isLegacy());

    store->replaceAll({ retired, group, withShortcut('b', "E"), withShortcut('c', "A") });
    EXPECT_EQ(badge(store->items()[1].children[0]), "");
    EXPECT_EQ(badge(store->items()[2]), "“x” already uses this combination.");
    EXPECT_EQ(badge(store->items()[3]), "");

    registrar.held.clear();
    registrar.taken = { commandE };
    center.reregister();
    EXPECT_EQ(badge(store->items()[1].children[0]), "Another app already uses this combination.")
        << "a later item of ours that wants it, too, does not have it";
}

TEST_F(MenuOutlineTest, ShowsATitleOnOneLine)
{
    auto item = itemNamed('a');
    item.title = "Two\nlines";
    EXPECT_EQ(outline.row(item).title, "Two␊lines");
}

TEST_F(MenuOutlineTest, DimsWhatIsHiddenOrCannotAct)
{
    files.addFile("/f/here");
    auto hidden = itemNamed('h');
    hidden.isHidden = true;
    auto const file = [&](char const* path) {
        auto item = MenuItem::ofKind(MenuItemKind::fsObject);
        item.location = ItemLocation::forURL(Url::fromPath(path), locations);
        return item;
    };
    auto retired = itemNamed('r');
    retired.kind = MenuItemKind::moveTo;
    struct Row {
        MenuItem item;
        bool isDimmed;
        std::string badge;
    };
    Row const rows[] = {
        { itemNamed('a'), false, "" },
        { hidden, true, "" },
        { file("/f/here"), false, "" },
        { file("/f/gone"), true, "This item points at a file that no longer exists." },
        { retired, true, *retired.kind.unavailabilityReason() },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.item.displayTitle());
        store->replaceAll({ row.item });
        auto const shown = outline.row(store->items()[0]);
        EXPECT_EQ(shown.isDimmed, row.isDimmed);
        EXPECT_EQ(shown.badge, row.badge);
    }
}

} // namespace
} // namespace zv
