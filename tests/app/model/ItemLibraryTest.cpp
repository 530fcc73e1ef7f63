#include "app/model/ItemLibrary.h"

#include "tests/app/model/ModelFixture.h"

#include <set>

namespace zv {

namespace {

using Titles = std::vector<std::string>;

struct ItemLibraryTest : ModelFixture {
    std::vector<LibraryEntry> load(LibraryMode mode = LibraryMode::everything) { return loadItemLibrary(resources, services, mode); }
    Titles titles(LibraryMode mode = LibraryMode::everything)
    {
        Titles result;
        for (auto const& entry : load(mode))
            result.push_back(entry.title);
        return result;
    }
};

PropertyListDictionary data(std::string const& kind) { return { { "Kind", kind } }; }

} // namespace

TEST_F(ItemLibraryTest, WrongEntriesAreSkippedAndTheOrderIsKept)
{
    addResource("Library.plist",
        PropertyListArray { PropertyListDictionary { { "Title", "B" }, { "Data", data("Sleep") }, { "Description", "Naps." }, { "Group", "G" } }, "text",
            PropertyListDictionary { { "Data", data("Sleep") } }, PropertyListDictionary { { "Title", 7 }, { "Data", data("Sleep") } },
            PropertyListDictionary { { "Title", "no data" } }, PropertyListDictionary { { "Title", "no kind" }, { "Data", PropertyListDictionary {} } },
            PropertyListDictionary { { "Title", "A" }, { "Data", data("Restart") } }, PropertyListDictionary { { "Title", "B" }, { "Data", data("Sleep") } } });
    auto const entries = load();
    EXPECT_EQ(titles(), (Titles { "B", "A" })) << "the second B has the first one's id";
    EXPECT_EQ(entries[0].localizedDescription, "Naps.");
    EXPECT_EQ(entries[0].group, "G");
    EXPECT_EQ(entries[1].localizedDescription, "");
    EXPECT_EQ(entries[0].itemTemplate.kind, MenuItemKind::sleep);
    EXPECT_EQ(load()[0].id, entries[0].id) << "the same each time";
}

TEST_F(ItemLibraryTest, AppleMenuModeTakesOnlyWhatIsMarkedAndKnown)
{
    auto const entry = [](std::string const& kind, PropertyList const& marked) {
        return PropertyListDictionary { { "Title", kind }, { "Data", data(kind) }, { "AppleMenu", marked } };
    };
    addResource("Library.plist",
        PropertyListArray { entry("Sleep", "YES"), entry("Restart", true), entry("Shutdown", "NO"), entry("MenuCommand", "YES"), entry("Teleport", "YES") });
    EXPECT_EQ(titles(LibraryMode::appleMenu), Titles { "Sleep" });
    EXPECT_EQ(titles().size(), 5U);
}

TEST_F(ItemLibraryTest, AResourceOfNoUseIsAnEmptyLibrary)
{
    EXPECT_TRUE(load().empty());
    addResource("Library.plist", PropertyListDictionary {});
    EXPECT_TRUE(load().empty());
    resources.files["Library.plist"] = fakes::bytesOf("garbage");
    EXPECT_TRUE(load().empty());
}

TEST_F(ItemLibraryTest, TheShippedLibraryHasEveryKindThatCanActWithASentenceForEach)
{
    for (std::string const system : { "", " (Linux)" }) {
        addRealResource("Library" + system + ".plist", "Library.plist");
        std::set<int> kinds;
        for (auto const& entry : load()) {
            kinds.insert(entry.itemTemplate.kind.value());
            EXPECT_TRUE(entry.localizedDescription.ends_with('.')) << entry.title;
            EXPECT_LT(entry.localizedDescription.size(), 120U) << entry.title;
            EXPECT_FALSE(entry.group.empty()) << entry.title;
            EXPECT_FALSE(entry.itemTemplate.kind.isLegacy()) << entry.title;
            EXPECT_TRUE(entry.itemTemplate.unrecognizedKeys.empty()) << entry.title;
        }
        for (int kind = 0; kind < MenuItemKind::openWith; ++kind) {
            bool const isHere = system.empty() || kind != MenuItemKind::shortcuts; // there are none on Linux
            EXPECT_EQ(kinds.contains(kind), isHere) << MenuItemKind(static_cast<MenuItemKind::Case>(kind)).rawValue() << system;
        }
        EXPECT_FALSE(load(LibraryMode::appleMenu).empty());
    }
}

TEST_F(ItemLibraryTest, TheShippedDockMenuIsAMenuDocument)
{
    addRealResource("DockMenu.plist", "DockMenu.plist");
    auto const items = menuItemsFromPropertyList(readPropertyList(resources.files["DockMenu.plist"]).value());
    ASSERT_TRUE(items) << items.error().description();
    std::vector<MenuItemKind> kinds;
    for (auto const& item : *items) {
        kinds.push_back(item.kind);
        EXPECT_FALSE(item.title);
    }
    EXPECT_EQ(kinds,
        (std::vector<MenuItemKind> { MenuItemKind::dockMagnification, MenuItemKind::dockHiding, MenuItemKind::separator, MenuItemKind::dockPosLeft,
            MenuItemKind::dockPosBottom, MenuItemKind::dockPosRight, MenuItemKind::separator, MenuItemKind::dockPrefs }));
}

} // namespace zv
