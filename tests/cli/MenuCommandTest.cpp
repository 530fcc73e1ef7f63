#include "tests/cli/CommandLineFixture.h"

#include <nlohmann/json.hpp>

namespace zv {
namespace {

struct MenuCommand : CommandLineFixture {
    MenuCommand()
    {
        auto folder = MenuItem::ofKind(MenuItemKind::fsObject);
        folder.location = ItemLocation { .path = "/f" };
        files.addFolder("/f");
        machine.folders->folders["/f"] = { fakes::FakeFolderReader::folder("g") };
        machine.folders->folders["/f/g"] = { { "h\xff" } };
        (void)defaults.setObject("Menu", toPropertyList(std::vector { folder, MenuItem::ofKind(MenuItemKind::aboutThisMac) }));
    }
};

TEST_F(MenuCommand, ShowsTheUsersMenuAsItWouldOpen)
{
    EXPECT_EQ(run({ "menu" }).out,
        "f ▸\n"
        "  (Loading…)\n"
        "About This Mac\n"
        "────────\n"
        "Customize Zanthe Vell…   ⌘,\n");
    EXPECT_EQ(run({ "menu", "--expand", "2" }).out,
        "f ▸\n"
        "  g ▸\n"
        "    h\uFFFD\n"
        "About This Mac\n"
        "────────\n"
        "Customize Zanthe Vell…   ⌘,\n");
    EXPECT_NE(run({ "menu", "--option" }).out.find("System Information\n"), std::string::npos);
    EXPECT_TRUE(run({ "menu", "--option", "--expand", "1" }).out.starts_with("f ▸\n  Open “f”\n")) << "its submenus, too";
}

TEST_F(MenuCommand, GivesJsonThatAProgramCanRead)
{
    auto const json = nlohmann::json::parse(run({ "menu", "--json", "--expand=2" }).out);
    EXPECT_EQ(json["items"][0]["items"][0]["items"][0]["title"], "h\uFFFD");
    EXPECT_EQ(json["items"].size(), 4U);
}

} // namespace
} // namespace zv
