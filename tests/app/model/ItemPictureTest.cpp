#include "app/model/ItemPicture.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(ItemPicture, IsANameThatLeadsNowhereElse)
{
    struct Row {
        char const *key, *name;
        bool isPicture;
        char const* why;
    };
    Row const rows[] = {
        { "icon", "folder-red", true, "a theme's icon" },
        { "image", "4711.png", true, "a file of ours" },
        { "icon", "/home/me/secret.svg", false, "the toolkit would open it" },
        { "image", "../a.png", false, "it lies elsewhere" },
        { "image", "..", false, "so does this" },
        { "icon", "a\nb", false, "no name has two lines" },
        { "icon", "", false, "nothing" },
        { "sound", "a", false, "what a later version may know" },
    };
    for (auto const& row : rows) {
        auto item = MenuItem::ofKind(MenuItemKind::sleep);
        item.unrecognizedKeys.set("picture", PropertyListDictionary { { row.key, row.name } });
        EXPECT_EQ(pictureOf(item).has_value(), row.isPicture) << row.why;
        auto const stored = item.unrecognizedKeys;
        if (auto const picture = pictureOf(item)) {
            setPicture(item, std::nullopt);
            EXPECT_TRUE(item.unrecognizedKeys.empty()) << row.why;
            setPicture(item, picture);
        }
        EXPECT_EQ(item.unrecognizedKeys, stored) << row.why;
    }
}

} // namespace
} // namespace zv
