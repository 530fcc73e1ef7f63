#include "app/settings/StartGallery.h"

#include "app/model/ItemLibrary.h"
#include "app/model/Locations.h"
#include "tests/SourceTree.h"
#include "tests/app/shell/ProgramFixture.h"

#include <fstream>
#include <iterator>
#include <set>

namespace zv {
namespace {

struct StartGalleryTest : ProgramFixture {
    void useResource(std::string const& name, std::string const& as)
    {
        std::ifstream file(tests::inSourceTree("app/resources/" + name), std::ios::binary);
        machine.resources.files[as] = fakes::bytesOf(std::string { std::istreambuf_iterator<char>(file), {} });
    }
    StartGallery& gallery() { return app->settingsModels().gallery(); }
    std::vector<MenuItem> const& stored() { return app->delegate().store().items(); }
};

void collect(std::vector<MenuItem> const& items, std::set<std::string>& kinds, std::set<Uuid>& ids)
{
    for (auto const& each : items) {
        kinds.emplace(each.kind.rawValue());
        ids.insert(each.id);
        collect(each.children, kinds, ids);
    }
}

TEST_F(StartGalleryTest, EachHasOnlyWhatTheSystemHasAndIsStoredAsItIs)
{
    machine.places.userFolders = { Url::fromPath("/home/ada/Documents"), Url::fromPath("/home/ada/Gone") };
    machine.files.addFolder("/home/ada/Documents");
    for (auto const& [kind, suffix] : { std::pair(SystemKind::macOS, ""), std::pair(SystemKind::linuxDesktop, " (Linux)") }) {
        machine.kind = kind;
        useResource("Library" + std::string(suffix) + ".plist", "Library.plist");
        useResource("Default Apple Menu" + std::string(suffix) + ".plist", "Default Apple Menu.plist");
        launchWith({ item(MenuItemKind::sleep) });
        std::set<std::string> known { "Separator", "Submenu" }, titles;
        for (auto const& entry : loadItemLibrary(machine.resources, locationsOf(machine.system()), LibraryMode::everything))
            known.emplace(entry.itemTemplate.kind.rawValue());
        for (auto const& menu : gallery().menus()) {
            SCOPED_TRACE(menu.title + suffix);
            EXPECT_TRUE(titles.insert(menu.title).second && !menu.description.empty());
            std::set<std::string> kinds;
            std::set<Uuid> ids;
            collect(menu.items, kinds, ids);
            EXPECT_GT(ids.size(), 9U);
            for (auto const& each : kinds)
                EXPECT_TRUE(known.contains(each)) << each;
            EXPECT_EQ(menuItemsFromPropertyList(toPropertyList(menu.items)).value(), menu.items);
            auto before = MenuItemKind(MenuItemKind::separator);
            for (auto const& each : menu.items) {
                EXPECT_FALSE(each.kind == MenuItemKind::separator && before == MenuItemKind::separator) << "no line after a line";
                EXPECT_FALSE(each.kind == MenuItemKind::submenu && each.children.empty());
                before = each.kind;
            }
            EXPECT_FALSE(before == MenuItemKind::separator);
        }
        EXPECT_EQ(titles, (std::set<std::string> { "Classic", "Everything", "Files first", "Launcher" }));
        EXPECT_EQ(gallery().menus()[1].items[1].location->path, "/home/ada/Documents");
        EXPECT_FALSE(gallery().menus()[1].items[2].location) << "a folder that is gone is left out";
    }
}

TEST_F(StartGalleryTest, TakingOneIsAnEditWithABackupAndAnAdministratorsComesFirst)
{
    machine.defaults.given.set(MenuStore::defaultsKey, toPropertyList(std::vector { item(MenuItemKind::restart), item(MenuItemKind::sleep) }));
    launchWith({ item(MenuItemKind::sleep) });
    std::vector<MenuEdit> edits;
    app->settingsModels().editor().onEdit = [&](MenuEdit const& edit) { edits.push_back(edit); };
    auto const menus = gallery().menus();
    ASSERT_EQ(menus.size(), 5U);
    gallery().take(menus[0]);
    ASSERT_EQ(stored().size(), 2U);
    EXPECT_EQ(app->settingsModels().menuFile().backups().size(), 1U);
    ASSERT_EQ(edits.size(), 1U);
    app->settingsModels().editor().undo(edits[0]);
    EXPECT_EQ(stored().size(), 1U);
    machine.defaults.locked = MenuStore::defaultsKey;
    EXPECT_FALSE(gallery().canTake());
}

} // namespace
} // namespace zv
