// The menu against bare libplist, from 10 to 10,000 items: loaded, saved, changed. File names
// against the memory they take.

#include "app/model/FinderPopName.h"
#include "app/model/MenuStore.h"
#include "base/MainThread.h"
#include "bench/Ratio.h"
#include "platform/linux/files/LinuxBookmarks.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/store/PlistUserDefaults.h"
#include "platform/text/PropertyListFormat.h"
#include "tests/fakes/FakeFiles.h"

#include <benchmark/benchmark.h>
#include <plist/plist.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

using namespace zv;

namespace {

constexpr std::size_t sizes[] = { 10, 100, 1'000, 10'000 }; // more than that is more than a property list may be
constexpr std::size_t nameCount = 100'000;

MenuItem itemAt(ItemLocation const& location, std::size_t number)
{
    auto item = MenuItem::ofKind(MenuItemKind::fsObject);
    item.title = "Some Application " + std::to_string(number);
    item.location = location;
    item.keyEquivalent = KeyEquivalentSpec { KeyEquivalentSpec::Trigger::character("E"), false, true, false, false };
    item.scanDepth = static_cast<std::int64_t>(number % 12);
    return item;
}

/// Submenus of nine items; ten of these are a hundred items.
std::vector<MenuItem> menuOf(ItemLocation const& location, std::size_t count)
{
    std::vector<MenuItem> items;
    for (std::size_t group = 0; group < count / 10; ++group) {
        items.push_back(MenuItem::ofKind(MenuItemKind::submenu));
        for (std::size_t i = 0; i < 9; ++i)
            items.back().children.push_back(itemAt(location, group * 10 + i));
    }
    return items;
}

plist_t parsedBare(std::vector<std::byte> const& document)
{
    plist_t node = nullptr;
    plist_from_xml(reinterpret_cast<char const*>(document.data()), static_cast<std::uint32_t>(document.size()), &node);
    return node;
}

/// The least of a save by libplist: the nodes, and their text.
void saveBare(plist_t tree)
{
    auto* const nodes = plist_copy(tree);
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(nodes, &text, &length);
    benchmark::DoNotOptimize(length);
    std::free(text);
    plist_free(nodes);
}

void compareDocument(std::vector<MenuItem> const& items, std::size_t count)
{
    auto const document = *writePropertyList(toPropertyList(items), PropertyListEncoding::xml);
    auto* const tree = parsedBare(document);
    auto const load = [&] { benchmark::DoNotOptimize(menuItemsFromPropertyList(*readPropertyList(document)).ok()); };
    bench::cell("reading a menu", count, "libplist", load, [&] { plist_free(parsedBare(document)); });
    auto const save = [&] { benchmark::DoNotOptimize(writePropertyList(toPropertyList(items), PropertyListEncoding::xml).ok()); };
    bench::cell("writing a menu", count, "libplist", save, [&] { saveBare(tree); });
    auto const model = [&] { benchmark::DoNotOptimize(toPropertyList(items).size()); };
    bench::cell("of that, records from items", count, "libplist's whole save", model, [&] { saveBare(tree); });
    plist_free(tree);
}

void lookForFiles(std::vector<MenuItem> const& items, LocationServices services)
{
    for (auto const& item : items) {
        if (item.location)
            benchmark::DoNotOptimize(item.location->resolve(services));
        lookForFiles(item.children, services);
    }
}

/// The whole change: locations looked for, the menu written to the disk.
void compareStore(std::vector<MenuItem> const& items, std::size_t count, std::filesystem::path const& folder, LocationServices services)
{
    PlistUserDefaults defaults((folder / "settings.plist").string());
    fakes::FakeResources const resources;
    MenuStore store({ defaults, resources, services });
    store.replaceAll(items);
    auto const stored = PropertyListDictionary { { "Menu", toPropertyList(items) } };
    auto const document = *writePropertyList(stored, PropertyListEncoding::xml);
    auto* const tree = parsedBare(document);
    auto const writeBare = [&] {
        saveBare(tree);
        benchmark::DoNotOptimize(services.files.write(Url::fromPath((folder / "bare.plist").string()), document));
    };
    bench::cell(
        "a change of the menu, up to the disk", count, "libplist and the same disk", [&] { store.move({ 0 }, items.size()); }, writeBare);
    auto const look = [&] {
        for (std::size_t i = 0; i < count; ++i)
            benchmark::DoNotOptimize(std::filesystem::exists(folder / "Some Application.desktop"));
    };
    bench::cell(
        "of that, looking for the files", count, "one stat each", [&] { lookForFiles(items, services); }, look);
    plist_free(tree);
}

std::vector<std::string> fileNames()
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < nameCount; ++i) {
        auto const number = std::to_string(i);
        auto const* pattern = i % 20 == 0 ? "01)" : "";
        auto const* annotation = i % 20 == 10 ? "-*[cmd+opt+E]*" : "";
        names.push_back(pattern + std::string("Some document of mine ") + number + annotation + ".txt");
    }
    return names;
}

void compareFileNames()
{
    auto const names = fileNames();
    auto const parse = [&] {
        for (auto const& name : names)
            benchmark::DoNotOptimize(FinderPopName(name));
    };
    auto const copy = [&] {
        for (auto const& name : names)
            benchmark::DoNotOptimize(std::pair<std::string, std::string>(name, name));
    };
    bench::ratio("parse a file name (ours, two copies of it)", nameCount, parse, copy);
}

} // namespace

int main()
{
    markMainThread();
    auto const folder = std::filesystem::temp_directory_path() / "zv-store-bench";
    std::filesystem::create_directories(folder);
    auto const file = folder / "Some Application.desktop";
    std::ofstream(file) << "[Desktop Entry]\n";
    LinuxFileSystem files;
    LinuxBookmarks bookmarks;
    LocationServices const services { files, bookmarks };
    for (auto const count : sizes) {
        auto const items = menuOf(ItemLocation::forURL(Url::fromPath(file.string()), services), count);
        compareDocument(items, count);
        compareStore(items, count, folder, services);
    }
    compareFileNames();
    std::filesystem::remove_all(folder);
}
