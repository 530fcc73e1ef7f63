#pragma once

#include "app/model/MenuItem.h"
#include "platform/text/PropertyListFormat.h"
#include "tests/SourceTree.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace zv {

/// A disk, bookmarks, resources and settings in memory.
struct ModelFixture : testing::Test {
    fakes::FakeFileSystem files;
    fakes::FakeBookmarks bookmarks { files };
    fakes::FakeResources resources;
    fakes::FakeUserDefaults defaults;
    LocationServices services { files, bookmarks, "/home/ada" };

    void addResource(std::string const& name, PropertyList const& value)
    {
        resources.files[name] = writePropertyList(value, PropertyListEncoding::xml).value();
    }
    /// Adds a resource that ships with the program.
    void addRealResource(std::string const& name, std::string const& asName)
    {
        std::ifstream in(tests::inSourceTree("app/resources/" + name), std::ios::binary);
        ASSERT_TRUE(in) << name;
        resources.files[asName] = fakes::bytesOf(std::string { std::istreambuf_iterator<char>(in), {} });
    }
};

inline MenuItem titled(std::string title, MenuItemKind kind = MenuItemKind::sleep)
{
    auto item = MenuItem::ofKind(std::move(kind));
    item.title = std::move(title);
    return item;
}

inline MenuItem group(std::string title, std::vector<MenuItem> children)
{
    auto item = titled(std::move(title), MenuItemKind::submenu);
    item.children = std::move(children);
    return item;
}

/// `depth` items, each the only child of the one before.
inline std::vector<MenuItem> nested(int depth)
{
    std::vector<MenuItem> items { titled("innermost") };
    for (int i = 1; i < depth; ++i)
        items = std::vector<MenuItem> { group(std::to_string(i), std::move(items)) };
    return items;
}

/// A dictionary of every property-list type, in unrecognized keys.
inline PropertyListDictionary everyType()
{
    return {
        { "text", "“é” & <b>" },
        { "integer", -7 },
        { "large", std::uint64_t { 18'446'744'073'709'551'615U } },
        { "real", 5.0 },
        { "yes", true },
        { "no", false },
        { "date", PropertyListDate { 694'224'000 } },
        { "data", fakes::bytesOf("a\xFF\0b") },
        { "nested", PropertyListArray { PropertyListArray { 1, "x" }, PropertyListDictionary { { "$data", "not base64" } }, PropertyListDictionary {} } },
    };
}

/// An item in which every field has a value that is not its default.
inline MenuItem fullItem()
{
    auto item = titled("Ünïcode “title”", MenuItemKind::fsObject);
    item.children = { titled("child"), MenuItem::ofKind(MenuItemKind::makeUnknown("Teleport")) };
    item.location = ItemLocation { fakes::bytesOf("mark"), "/a/bytes \xFF", "bytes \xFF" };
    item.keyEquivalent = KeyEquivalentSpec { KeyEquivalentSpec::Trigger::named("F5"), true, false, true, true };
    item.isHidden = true;
    item.scanDepth = -3;
    item.unrecognizedKeys = everyType();
    return item;
}

inline std::vector<std::string> titlesOf(std::vector<MenuItem> const& items)
{
    std::vector<std::string> titles;
    for (auto const& item : items)
        titles.push_back(item.title.value_or(""));
    return titles;
}

} // namespace zv
