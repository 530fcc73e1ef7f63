// Property lists against bare libplist: a menu of 10,000 items, read and written.

#include "base/Uuid.h"
#include "bench/Ratio.h"
#include "platform/text/PropertyListFormat.h"

#include <benchmark/benchmark.h>
#include <plist/plist.h>

#include <cstdlib>

using namespace zv;

namespace {

constexpr std::size_t itemCount = 10'000;

PropertyListDictionary item(std::size_t number, PropertyListArray children)
{
    auto const path = "/usr/share/applications/Some Application " + std::to_string(number) + ".desktop";
    return {
        { "id", Uuid::random().toString() },
        { "kind", "fsObject" },
        { "title", "Some Application " + std::to_string(number) },
        { "children", std::move(children) },
        { "location",
            PropertyListDictionary { { "bookmark", PropertyListData(80, std::byte { 0x5A }) }, { "path", path }, { "displayName", "Some Application" } } },
        { "keyEquivalent",
            PropertyListDictionary { { "trigger", "E" }, { "shift", false }, { "option", true }, { "control", false }, { "noCommand", false } } },
        { "isHidden", false },
        { "scanDepth", static_cast<std::int64_t>(number % 12) },
        { "unrecognizedKeys", PropertyListDictionary {} },
    };
}

/// A hundred submenus of a hundred items less one.
PropertyList menu()
{
    PropertyListArray items;
    for (std::size_t group = 0; group < itemCount / 100; ++group) {
        PropertyListArray children;
        for (std::size_t i = 0; i < 99; ++i)
            children.emplace_back(item(group * 100 + i, {}));
        items.emplace_back(item(group, std::move(children)));
    }
    return items;
}

plist_t parsedBare(std::vector<std::byte> const& document, PropertyListEncoding encoding)
{
    plist_t node = nullptr;
    auto const* bytes = reinterpret_cast<char const*>(document.data());
    auto const size = static_cast<std::uint32_t>(document.size());
    if (encoding == PropertyListEncoding::xml)
        plist_from_xml(bytes, size, &node);
    else
        plist_from_bin(bytes, size, &node);
    return node;
}

void writeBare(plist_t node, PropertyListEncoding encoding)
{
    char* text = nullptr;
    std::uint32_t length = 0;
    if (encoding == PropertyListEncoding::xml)
        plist_to_xml(node, &text, &length);
    else
        plist_to_bin(node, &text, &length);
    benchmark::DoNotOptimize(length);
    std::free(text);
}

void compare(PropertyList const& value, PropertyListEncoding encoding, std::string const& name)
{
    auto const document = *writePropertyList(value, encoding);
    auto const bareTree = parsedBare(document, encoding);
    auto const load = [&] { benchmark::DoNotOptimize(readPropertyList(document).ok()); };
    auto const loadBare = [&] { plist_free(parsedBare(document, encoding)); };
    auto const save = [&] { benchmark::DoNotOptimize(writePropertyList(value, encoding).ok()); };
    // A program with a model of its own makes libplist's tree for each save; copying one is the
    // quickest way.
    auto const saveBare = [&] {
        auto const tree = plist_copy(bareTree);
        writeBare(tree, encoding);
        plist_free(tree);
    };
    bench::ratio(name + " load, an item", itemCount, load, loadBare);
    bench::ratio(name + " save, an item", itemCount, save, saveBare);
    bench::ratio(name + " save against writing a tree that is there already, an item", itemCount, save, [&] { writeBare(bareTree, encoding); });
    bench::ratio(
        name + " load and save, an item", itemCount,
        [&] {
            load();
            save();
        },
        [&] {
            loadBare();
            saveBare();
        });
    plist_free(bareTree);
}

} // namespace

int main()
{
    auto const value = menu();
    compare(value, PropertyListEncoding::xml, "XML");
    compare(value, PropertyListEncoding::binary, "binary");
}
