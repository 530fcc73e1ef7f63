#include "app/hotkeys/HotkeyReport.h"

#include "tests/fakes/FakeHotkeys.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(HotkeyReport, NamesEveryRegistrationAndConflict)
{
    fakes::FakeHotkeyRegistrar registrar;
    fakes::FakeKeyboardLayoutSource source;
    source.set({ { { 14, "e" }, { 0, "a" } } });
    Notifications notifications;
    KeyboardLayout layout(source, notifications);
    HotkeyCenter center(registrar, layout);
    EXPECT_EQ(hotkeyReport(&center), R"({"registrations":[],"conflicts":[],"unavailable":[],"support":"everywhere"})");

    auto item = MenuItem::ofKind(MenuItemKind::sleep);
    item.id = *Uuid::parse("00000000-0000-0000-0000-0000000000AB");
    item.keyEquivalent = KeyEquivalentSpec { .trigger = KeyEquivalentSpec::Trigger::character("E"), .option = true };
    auto const bare = KeyEquivalentSpec { .trigger = KeyEquivalentSpec::Trigger::named("f5"), .noCommand = true };
    center.setFileHotkeys({ { Url::fromPath("/a\xFF"), bare }, { Url::fromPath("/b"), *item.keyEquivalent },
        { Url::fromPath("/c"), { .trigger = KeyEquivalentSpec::Trigger::character("Я") } },
        { Url::fromPath("/d"), { .trigger = KeyEquivalentSpec::Trigger::named("f1") } } });
    registrar.kept = { { 122, commandKey } };
    std::vector const menu { item };
    center.menuItemsChanged(menu);
    EXPECT_EQ(hotkeyReport(&center),
        R"({"registrations":[{"id":1,"shortcut":"⌥⌘E","item":"00000000-0000-0000-0000-0000000000AB","title":"Sleep"},)"
        R"({"id":2,"shortcut":"F5","file":"/a�"}],"conflicts":[{"shortcut":"⌥⌘E","file":"/b"}],)"
        R"("unavailable":[{"shortcut":"⌘Я","reason":"notOnLayout","file":"/c"},{"shortcut":"⌘F1","reason":"keptBySystem","file":"/d"}],)"
        R"("support":"everywhere"})");

    registrar.supported = HotkeySupport::none;
    auto group = MenuItem::ofKind(MenuItemKind::submenu);
    group.id = *Uuid::parse("00000000-0000-0000-0000-0000000000CD");
    group.children = { item };
    std::vector const other { group };
    center.menuItemsChanged(other);
    EXPECT_NE(
        hotkeyReport(&center).find(
            R"("bindings":[{"file":"~/keys","line":"14 zanthe-vell perform 00000000-0000-0000-0000-0000000000CD 00000000-0000-0000-0000-0000000000AB"},{"file":"~/keys","line":"96 xdg-open '/a�'"}])"),
        std::string::npos)
        << hotkeyReport(&center);
}

} // namespace
} // namespace zv
