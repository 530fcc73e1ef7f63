#include "app/model/MenuDocument.h"

#include "tests/app/model/ModelFixture.h"

namespace zv {

namespace {

struct MenuDocumentTest : ModelFixture {
    [[nodiscard]] Result<ImportedMenu, ReadFailure> read(PropertyList const& value) const
    {
        return readMenuDocument(writePropertyList(value, PropertyListEncoding::binary).value(), services);
    }
    [[nodiscard]] std::string failureOf(PropertyList const& value) const
    {
        auto const menu = read(value);
        return menu ? "" : menu.error().description();
    }
    [[nodiscard]] std::string failureOfText(std::string_view text) const { return readMenuDocument(fakes::bytesOf(text), services).error().description(); }
};

PropertyListDictionary older(PropertyList const& menu) { return { { "MenuDesc", menu } }; }

} // namespace

TEST_F(MenuDocumentTest, WhatIsExportedIsImportedUnchanged)
{
    std::vector<MenuItem> const items { fullItem(), group("g", { titled("a"), group("h", {}) }) };
    auto const bytes = menuDocument(items);
    ASSERT_TRUE(bytes);
    EXPECT_TRUE(fakes::textOf(*bytes).starts_with("<?xml"));
    auto const menu = readMenuDocument(*bytes, services);
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->items, items);
    EXPECT_EQ(menu->itemCount, 6U);
    EXPECT_EQ(menu->renewedIds, 0U);
    EXPECT_TRUE(menuDocument({}));
    EXPECT_EQ(menuDocument({ titled("\xFF") }).error(), "item 1: \"title\" holds a value that cannot be stored");
}

TEST_F(MenuDocumentTest, ReadsTheOlderFormAndAWholeSettingsFile)
{
    auto const fromOlder = read(older(PropertyListArray { PropertyListDictionary { { "Kind", "Sleep" }, { "Extra", 1 } } }));
    ASSERT_TRUE(fromOlder);
    EXPECT_EQ(fromOlder->items[0].kind, MenuItemKind::sleep);
    EXPECT_TRUE(fromOlder->items[0].unrecognizedKeys.contains("Extra"));
    auto const fromSettings = read(PropertyListDictionary { { "ShowIcons", true }, { "Menu", toPropertyList(std::vector { titled("a") }) } });
    ASSERT_TRUE(fromSettings);
    EXPECT_EQ(titlesOf(fromSettings->items), std::vector<std::string> { "a" });
}

TEST_F(MenuDocumentTest, RepeatedIdsAreRenewedAndCounted)
{
    auto const item = titled("same");
    auto const menu = read(toPropertyList(std::vector { item, group("g", { item }), item }));
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->renewedIds, 2U);
    EXPECT_EQ(menu->items[0].id, item.id);
    EXPECT_NE(menu->items[1].children[0].id, item.id);
    EXPECT_NE(menu->items[2].id, menu->items[1].children[0].id);
}

TEST_F(MenuDocumentTest, WhatIsWrongIsNamed)
{
    PropertyListDictionary const good { { "Kind", "Sleep" } };
    PropertyListDictionary const withBadChild { { "Kind", "Submenu" }, { "Items", PropertyListArray { good, "text" } } };
    struct Row {
        PropertyList document;
        std::string failure;
    };
    Row const rows[] = {
        { "text", "the document is a string where an array of items is expected" },
        { PropertyListDictionary { { "Other", 1 } }, "the document is a dictionary without \"MenuDesc\" or \"Menu\"" },
        { older("text"), "the document: \"MenuDesc\" is a string where an array is expected" },
        { older(PropertyListArray { good, PropertyListDictionary { { "Title", "T" } } }), "item 2: \"Kind\" is missing" },
        { older(PropertyListArray { PropertyListDictionary { { "Kind", 7 } } }), "item 1: \"Kind\" is an integer where a string is expected" },
        { older(PropertyListArray { good, withBadChild }), "item 2 › 2 is a string where a dictionary is expected" },
        { older(PropertyListArray { PropertyListDictionary { { "Kind", "Submenu" }, { "Items", 1 } } }),
            "item 1: \"Items\" is an integer where an array is expected" },
        { PropertyListArray { PropertyListDictionary {} }, "item 1: \"id\" is missing" },
        { toPropertyList(nested(65)),
            "item 1" +
                [] {
                    std::string rest;
                    for (int i = 0; i < 64; ++i)
                        rest += " › 1";
                    return rest;
                }()
                + " is nested deeper than 64 levels" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(failureOf(row.document), row.failure);
}

TEST_F(MenuDocumentTest, FilesThatAreNoPropertyListsAreRefusedWithTheirReason)
{
    auto const whole = fakes::textOf(menuDocument({ fullItem() }).value());
    std::string deep = "<plist version=\"1.0\">";
    for (int i = 0; i < 10'000; ++i)
        deep += "<array>";
    std::string const texts[] = { "", "garbage", std::string("bplist00\x01\x02\x03", 11), "<plist><array>", "{\"id\": 1}", deep, std::string(1000, '\0'),
        whole.substr(0, whole.size() / 2), whole.substr(0, whole.size() - 20) };
    for (auto const& text : texts) {
        auto const failure = failureOfText(text);
        EXPECT_TRUE(failure.starts_with("the document cannot be read: ")) << failure;
        EXPECT_GE(failure.size(), 40U) << failure;
    }
}

} // namespace zv
