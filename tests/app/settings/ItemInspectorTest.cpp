#include "app/settings/ItemInspector.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(ItemInspector, HasTheRowsThatApply)
{
    fakes::FakeUserDefaults defaults;
    Preferences const preferences(defaults);
    struct Row {
        MenuItemKind kind;
        std::string rows, why;
    };
    Row const rows[] = {
        { MenuItemKind::sleep, "title shortcut", "a command" },
        { MenuItemKind::separator, "", "nothing to choose" },
        { MenuItemKind::submenu, "title shortcut", "its items are its own" },
        { MenuItemKind::fsObject, "title target depth shortcut", "may be a folder" },
        { MenuItemKind::recentFolders, "title depth shortcut", "lists folders" },
        { MenuItemKind::openWith, "title", "a retired kind does nothing" },
        { MenuItemKind::makeUnknown("x"), "title", "nor does an unknown one" },
    };
    for (auto const& row : rows) {
        auto const fields = inspectorFields(MenuItem::ofKind(row.kind), preferences, { .isMissing = true });
        std::string shown;
        for (auto const& [isThere, name] : { std::pair(fields.hasTitle, "title"), std::pair(fields.hasTarget, "target"), std::pair(fields.hasDepth, "depth"),
                 std::pair(fields.hasShortcut, "shortcut") })
            shown += isThere ? (shown.empty() ? "" : " ") + std::string(name) : "";
        EXPECT_EQ(shown, row.rows) << row.why;
        EXPECT_EQ(fields.targetIsMissing, row.kind == MenuItemKind::fsObject) << row.why;
    }
    EXPECT_FALSE(inspectorFields(MenuItem::ofKind(MenuItemKind::fsObject), preferences, { .mayBeFolder = false }).hasDepth) << "a document has no levels";
    auto full = MenuItem::ofKind(MenuItemKind::fsObject);
    full.children = { MenuItem::ofKind(MenuItemKind::sleep) };
    EXPECT_FALSE(inspectorFields(full, preferences, {}).hasDepth) << "with items of its own it is a submenu";
}

} // namespace
} // namespace zv
