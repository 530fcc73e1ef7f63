#include "app/model/MenuItem.h"

#include "base/Translation.h"
#include "tests/app/model/ModelFixture.h"

#include <functional>
#include <string>

namespace zv {

namespace {

using Titles = std::vector<std::string>;

std::vector<std::string> keysOf(PropertyListDictionary const& record)
{
    std::vector<std::string> keys;
    for (auto const& [key, value] : record)
        keys.push_back(key);
    return keys;
}

PropertyListDictionary minimalRecord() { return toPropertyList(MenuItem::ofKind(MenuItemKind::sleep)); }

} // namespace

TEST(MenuItem, TheTitleShownIsTheFirstThatIsNotEmpty)
{
    auto item = MenuItem::ofKind(MenuItemKind::recentApps);
    EXPECT_EQ(item.displayTitle(), "Recent Applications");
    item.location = ItemLocation { std::nullopt, "/a", "" };
    EXPECT_EQ(item.displayTitle(), "Recent Applications");
    item.location->displayName = "Name";
    item.title = "";
    EXPECT_EQ(item.displayTitle(), "Name");
    item.title = "Mine";
    EXPECT_EQ(item.displayTitle(), "Mine");
    item.title = "\xFF";
    EXPECT_EQ(item.displayTitle(), "\xEF\xBF\xBD") << "shown as text whatever its bytes are";

    translateBy([](Sentence const& sentence, char const*, unsigned long) { return "<" + std::string(sentence.english) + ">"; });
    auto home = MenuItem::ofKind(MenuItemKind::fsObject);
    home.title = "Home";
    EXPECT_EQ(home.displayTitle(), "<Home>") << "a title of ours";
    home.setOwnTitle("Home");
    EXPECT_EQ(menuItemsFromPropertyList(toPropertyList(std::vector { home })).value()[0].displayTitle(), "Home") << "the user’s own word, kept";
    home.setOwnTitle("Mine");
    EXPECT_TRUE(home.unrecognizedKeys == PropertyListDictionary {});
    auto group = MenuItem::ofKind(MenuItemKind::submenu);
    group.title = "Home";
    EXPECT_EQ(group.displayTitle(), "Home") << "no submenu of ours has this title";
    translateBy(nullptr);
}

TEST(MenuItem, EveryFieldCountsInEqualityAndHash)
{
    std::function<void(MenuItem&)> const changes[] = {
        [](MenuItem& item) { item.id = Uuid::random(); },
        [](MenuItem& item) { item.kind = MenuItemKind::restart; },
        [](MenuItem& item) { item.title = "other"; },
        [](MenuItem& item) { item.title.reset(); },
        [](MenuItem& item) { item.children.pop_back(); },
        [](MenuItem& item) { item.children[0].isHidden = true; },
        [](MenuItem& item) { item.location->bookmark.reset(); },
        [](MenuItem& item) { item.keyEquivalent.reset(); },
        [](MenuItem& item) { item.isHidden = false; },
        [](MenuItem& item) { item.scanDepth.reset(); },
        [](MenuItem& item) { item.unrecognizedKeys.set("text", "x"); },
    };
    auto const original = fullItem();
    for (auto const& change : changes) {
        auto changed = original;
        EXPECT_EQ(changed, original);
        EXPECT_EQ(hashValue(changed), hashValue(original));
        change(changed);
        EXPECT_NE(changed, original);
        EXPECT_NE(hashValue(changed), hashValue(original));
    }
    auto empty = original;
    auto absent = original;
    empty.title = "";
    absent.title.reset();
    EXPECT_NE(empty, absent) << "an empty title is a title";
}

TEST(MenuItem, IsFoundBeforeItsChildrenAndThoseBeforeItsSibling)
{
    std::vector<MenuItem> items { group("a", { titled("a1"), titled("a2") }), titled("b") };
    auto const id = Uuid::random();
    items[1].id = id;
    EXPECT_EQ(findItem(items, id)->title, "b");
    items[0].children[1].id = id;
    EXPECT_EQ(findItem(items, id)->title, "a2");
    items[0].id = id;
    EXPECT_EQ(findItem(items, id)->title, "a");
    EXPECT_EQ(findItem(items, Uuid()), nullptr);
    EXPECT_TRUE(containsKind(items, MenuItemKind::sleep));
    EXPECT_FALSE(containsKind(items, MenuItemKind::quitZantheVell));
}

TEST(MenuItemRecord, HasItsKeysInTheFixedOrder)
{
    EXPECT_EQ(keysOf(toPropertyList(fullItem())),
        (Titles { "id", "kind", "title", "children", "location", "keyEquivalent", "isHidden", "scanDepth", "unrecognizedKeys" }));
    EXPECT_EQ(keysOf(minimalRecord()), (Titles { "id", "kind", "children", "isHidden", "unrecognizedKeys" }));
}

TEST(MenuItemRecord, SurvivesXmlAndBinaryUnchanged)
{
    std::vector<MenuItem> const items { fullItem(), group("g", { fullItem() }), MenuItem::ofKind(MenuItemKind::lockScreen) };
    for (auto const encoding : { PropertyListEncoding::xml, PropertyListEncoding::binary }) {
        auto const bytes = writePropertyList(toPropertyList(items), encoding);
        ASSERT_TRUE(bytes);
        auto const read = menuItemsFromPropertyList(readPropertyList(*bytes).value());
        ASSERT_TRUE(read) << read.error().description();
        EXPECT_EQ(*read, items);
    }
}

TEST(MenuItemRecord, AWrongValueIsNamedByItsKeyAndReason)
{
    struct Row {
        std::string key;
        std::optional<PropertyList> value; ///< absent: the key is taken out
        std::string failure;
    };
    Row const rows[] = {
        { "id", std::nullopt, "item 1: \"id\" is missing" },
        { "id", 7, "item 1: \"id\" is an integer where a string is expected" },
        { "id", "not-a-uuid", "item 1: \"id\" is not a UUID" },
        { "kind", std::nullopt, "item 1: \"kind\" is missing" },
        { "kind", PropertyListArray {}, "item 1: \"kind\" is an array where a string is expected" },
        { "title", true, "item 1: \"title\" is a boolean where a string is expected" },
        { "children", std::nullopt, "item 1: \"children\" is missing" },
        { "children", "none", "item 1: \"children\" is a string where an array is expected" },
        { "children", PropertyListArray { 5 }, "item 1 › 1 is an integer where a dictionary is expected" },
        { "location", "here", "item 1: \"location\" is a string where a dictionary is expected" },
        { "location", PropertyListDictionary { { "path", 1 } }, "item 1: \"location.path\" is an integer where a string is expected" },
        { "keyEquivalent", PropertyListDictionary {}, "item 1: \"keyEquivalent.trigger\" is missing" },
        { "isHidden", std::nullopt, "item 1: \"isHidden\" is missing" },
        { "isHidden", 1, "item 1: \"isHidden\" is an integer where a boolean is expected" },
        { "scanDepth", 3.0, "item 1: \"scanDepth\" is a real where an integer is expected" },
        { "scanDepth", std::uint64_t { 9'300'000'000'000'000'000U }, "item 1: \"scanDepth\" is too large a number" },
        { "unrecognizedKeys", std::nullopt, "item 1: \"unrecognizedKeys\" is missing" },
        { "unrecognizedKeys", PropertyListArray {}, "item 1: \"unrecognizedKeys\" is an array where a dictionary is expected" },
    };
    for (auto const& row : rows) {
        auto record = minimalRecord();
        if (row.value)
            record.set(row.key, *row.value);
        else
            record.remove(row.key);
        auto const read = menuItemsFromPropertyList(PropertyListArray { record });
        ASSERT_FALSE(read) << row.failure;
        EXPECT_EQ(read.error().description(), row.failure);
    }
    EXPECT_EQ(menuItemsFromPropertyList("text").error().description(), "the document is a string where an array of items is expected");
}

TEST(MenuItemRecord, OneBadRecordAmongAThousandIsNamedByItsPlace)
{
    std::vector<MenuItem> items(1000, titled("good"));
    items[617].children = { titled("good"), group("g", { titled("bad") }) };
    auto records = toPropertyList(items);
    auto& second = (*records[617].dictionary()->find("children")->array())[1];
    auto inner = *second.dictionary();
    inner.set("children", PropertyListArray { PropertyListDictionary { { "id", Uuid().toString() } } });
    auto outer = *records[617].dictionary();
    outer.set("children", PropertyListArray { toPropertyList(titled("good")), inner });
    records[617] = outer;
    auto const read = menuItemsFromPropertyList(records);
    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().indexPath, (std::vector<std::size_t> { 617, 1, 0 }));
    EXPECT_EQ(read.error().description(), "item 618 › 2 › 1: \"kind\" is missing");
}

TEST(MenuItemRecord, IsRefusedBeyondTheStatedDepth)
{
    EXPECT_TRUE(menuItemsFromPropertyList(toPropertyList(nested(maximumMenuDepth))));
    EXPECT_FALSE(findUnwritable(nested(maximumMenuDepth)));
    auto const read = menuItemsFromPropertyList(toPropertyList(nested(maximumMenuDepth + 1)));
    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().indexPath.size(), maximumMenuDepth + 1U);
    EXPECT_EQ(read.error().reason, "is nested deeper than 64 levels");
    EXPECT_EQ(findUnwritable(nested(maximumMenuDepth + 1))->reason, "is nested deeper than 64 levels");
}

TEST(MenuItemRecord, TheDeepestMenuAndValuesFitAPropertyList)
{
    PropertyList value = "innermost";
    for (int i = 0; i < 100; ++i)
        value = PropertyListArray { value };
    auto items = nested(maximumMenuDepth);
    auto* innermost = &items[0];
    while (!innermost->children.empty())
        innermost = &innermost->children[0];
    innermost->unrecognizedKeys.set("deep", value);
    EXPECT_FALSE(findUnwritable(items));
    auto const inDefaults = PropertyListDictionary { { "Menu", toPropertyList(items) } };
    EXPECT_TRUE(writePropertyList(inDefaults, PropertyListEncoding::xml));
}

TEST(MenuItemRecord, WhatNoPropertyListCanHoldIsNamedBeforeItIsWritten)
{
    struct Row {
        std::function<void(MenuItem&)> change;
        std::string key;
    };
    Row const rows[] = {
        { [](MenuItem& item) { item.title = "\xFF"; }, "title" },
        { [](MenuItem& item) { item.title = std::string("a\0b", 3); }, "title" },
        { [](MenuItem& item) { item.kind = MenuItemKind::makeUnknown("\xFF"); }, "kind" },
        { [](MenuItem& item) { item.keyEquivalent->trigger = KeyEquivalentSpec::Trigger::character("\xFE"); }, "keyEquivalent" },
        { [](MenuItem& item) { item.keyEquivalent->trigger = KeyEquivalentSpec::Trigger::character("two"); }, "keyEquivalent" },
        { [](MenuItem& item) { item.unrecognizedKeys.set("\xFF", 1); }, "unrecognizedKeys" },
        { [](MenuItem& item) { item.unrecognizedKeys.set("a", PropertyListArray { std::string("a\0", 2) }); }, "unrecognizedKeys" },
    };
    auto withControls = fullItem();
    withControls.unrecognizedKeys.set("\x0B", "a\r\n\xEF\xBF\xBF");
    EXPECT_FALSE(findUnwritable({ fullItem(), withControls })) << "a path of any bytes is written as data, other texts in a binary list";
    for (auto const& row : rows) {
        auto item = fullItem();
        row.change(item);
        auto const failure = findUnwritable({ titled("good"), group("g", { item }) });
        ASSERT_TRUE(failure) << row.key;
        EXPECT_EQ(failure->description(), "item 2 › 1: \"" + row.key + "\" holds a value that cannot be stored");
    }
}

TEST(MenuItemDragRecord, IsReadBackUnchanged)
{
    for (auto const& item : { fullItem(), MenuItem::ofKind(MenuItemKind::separator), group("g", { group("h", { fullItem() }) }) }) {
        auto const read = menuItemFromDragRecord(toDragRecord(item));
        ASSERT_TRUE(read) << read.error().description();
        EXPECT_EQ(*read, item);
    }
}

TEST(MenuItemDragRecord, IsJsonWithTheSameKeys)
{
    auto item = titled("T", MenuItemKind::lockScreen);
    item.id = Uuid::parse("00000000-0000-4000-8000-00000000000A").value();
    item.unrecognizedKeys = { { "when", PropertyListDate { 1.5 } } };
    EXPECT_EQ(toDragRecord(item),
        "{\"id\":\"00000000-0000-4000-8000-00000000000A\",\"kind\":\"Lock Screen\",\"title\":\"T\",\"children\":[],"
        "\"isHidden\":false,\"unrecognizedKeys\":{\"when\":{\"$date\":1.5}}}");
}

TEST(MenuItemDragRecord, BadTextIsRefused)
{
    auto const good = toDragRecord(titled("T"));
    auto const with = [&](std::string const& value) {
        auto text = good;
        return text.replace(text.find("\"T\""), 3, value);
    };
    std::string const texts[] = { "", "[]", "null", "{}", "{\"id\":", "\xFF", good.substr(0, good.size() / 2), with("null"), with("\"\\u0000\""),
        with("{\"$data\":\"!\"}"), with("7"), std::string(100'000, '[') };
    for (auto const& text : texts)
        EXPECT_FALSE(menuItemFromDragRecord(text)) << text.substr(0, 80);
    EXPECT_TRUE(menuItemFromDragRecord(good));
}

struct OlderFormTest : ModelFixture {
    [[nodiscard]] std::optional<MenuItem> read(PropertyListDictionary const& dictionary) const { return menuItemFromOlderDictionary(dictionary, services); }
};

TEST_F(OlderFormTest, CommandsOfKnownCodesBecomeTheirKinds)
{
    struct Row {
        std::string kind;
        PropertyList command;
        MenuItemKind::Case expected;
    };
    Row const rows[] = {
        { "MenuCommand", "dokm", MenuItemKind::dockMagnification },
        { "menucommand", "DOKH", MenuItemKind::dockHiding },
        { "MenuCommand", "dlft", MenuItemKind::dockPosLeft },
        { "MenuCommand", "dbtm", MenuItemKind::dockPosBottom },
        { "MenuCommand", "drig", MenuItemKind::dockPosRight },
        { "MenuCommand", "dokp", MenuItemKind::dockPrefs },
        { "MenuCommand", "what", MenuItemKind::menuCommand },
        { "MenuCommand", 7, MenuItemKind::menuCommand },
        { "Sleep", "dokm", MenuItemKind::sleep },
    };
    for (auto const& row : rows)
        EXPECT_EQ(read({ { "Kind", row.kind }, { "Command", row.command } })->kind, row.expected) << row.kind;
}

TEST_F(OlderFormTest, TheTitleFallsBackToTheDisplayName)
{
    EXPECT_EQ(read({ { "Kind", "Sleep" }, { "Title", "T" }, { "DisplayName", "D" } })->title, "T");
    EXPECT_EQ(read({ { "Kind", "Sleep" }, { "Title", 7 }, { "DisplayName", "D" } })->title, "D");
    EXPECT_EQ(read({ { "Kind", "Sleep" }, { "DisplayName", "D" } })->title, "D");
    EXPECT_EQ(read({ { "Kind", "Sleep" }, { "DisplayName", 7 } })->title, std::nullopt);
}

TEST_F(OlderFormTest, AStoredFalseStillHidesTheItem)
{
    EXPECT_TRUE(read({ { "Kind", "Sleep" }, { "Hidden", false } })->isHidden);
    EXPECT_FALSE(read({ { "Kind", "Sleep" } })->isHidden);
}

TEST_F(OlderFormTest, ReadsShortcutDepthAndLocation)
{
    files.addFile("/a/Notes");
    auto const item = read({ { "Kind", "FSObject" }, { "Path", "/a/Notes" }, { "ScanDepth", 3 }, { "Key", "n" }, { "KeyModifierOption", 1 } });
    EXPECT_EQ(item->location->path, "/a/Notes");
    EXPECT_TRUE(item->location->bookmark) << "resolved at once";
    EXPECT_EQ(item->scanDepth, 3);
    EXPECT_EQ(item->keyEquivalent->description(), "⌥⌘N");
    EXPECT_FALSE(read({ { "Kind", "Sleep" }, { "Path", "/a/Notes" } })->location) << "only a file has a place";
    EXPECT_FALSE(read({ { "Kind", "Sleep" }, { "ScanDepth", "3" } })->scanDepth);
}

TEST_F(OlderFormTest, KeepsWhatItDoesNotKnowAndDropsWhatHasNoMeaningNow)
{
    PropertyListDictionary dictionary { { "Kind", "Teleport" }, { "OSVersion", 10 }, { "SystemHotKey", true }, { "Command", "x" },
        { "KeyModifierShift", true } };
    for (auto const& [key, value] : everyType())
        dictionary.set(key, value);
    auto const item = read(dictionary);
    EXPECT_EQ(item->kind, MenuItemKind::makeUnknown("Teleport"));
    EXPECT_EQ(item->unrecognizedKeys, everyType());
}

TEST_F(OlderFormTest, SkipsWhatYieldsNoItemAndReadsItsSiblings)
{
    PropertyListArray const values { PropertyListDictionary { { "Title", "no kind" } }, PropertyListDictionary { { "Kind", 7 } }, "text",
        PropertyListDictionary { { "Kind", "Submenu" },
            { "Items", PropertyListArray { PropertyListDictionary {}, PropertyListDictionary { { "Kind", "Sleep" }, { "Title", "inner" } } } } } };
    auto const items = menuItemsFromOlderArray(values, services);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(titlesOf(items[0].children), Titles { "inner" });
    EXPECT_NE(items[0].id, items[0].children[0].id);
}

TEST_F(OlderFormTest, StopsAtTheStatedDepth)
{
    PropertyList value = PropertyListDictionary { { "Kind", "Sleep" } };
    for (int i = 0; i < 200; ++i)
        value = PropertyListDictionary { { "Kind", "Submenu" }, { "Items", PropertyListArray { std::move(value) } } };
    int depth = 0;
    auto const item = menuItemFromOlderDictionary(value, services);
    for (auto const* level = &*item; level; level = level->children.empty() ? nullptr : level->children.data())
        ++depth;
    EXPECT_EQ(depth, maximumMenuDepth);
    EXPECT_EQ(findUnreadableInOlderArray({ value })->reason, "is nested deeper than 64 levels");
    for (int i = 0; i < 200 + 1 - maximumMenuDepth; ++i) {
        PropertyList inner = value.dictionary()->find("Items")->array()->front();
        value = std::move(inner);
    }
    EXPECT_FALSE(findUnreadableInOlderArray({ value })) << "64 levels";
}

} // namespace zv
