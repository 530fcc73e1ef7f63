#include "tests/app/shell/ProgramFixture.h"

namespace zv {
namespace {

struct SetupCommandsInSettings : ProgramFixture {
    void press(std::string const& id)
    {
        for (auto& section : app->delegate().parts().settingsModels().general().sections()) {
            for (auto const& row : section.rows) {
                if (row.id == id)
                    return row.press();
            }
        }
        FAIL() << id;
    }
    void import(Url const& file, std::size_t answer)
    {
        front.filePanels.opened = { file };
        front.alerts.answers = { answer };
        press("importMenu");
    }
    [[nodiscard]] std::string state()
    {
        auto& program = app->delegate();
        return std::to_string(program.store().items().size()) + " items, " + std::to_string(program.preferences().recentItemsLimit());
    }
};

TEST_F(SetupCommandsInSettings, AnImportOfAllAsksFirstAndCanBeTakenBack)
{
    launchWith({ item(MenuItemKind::sleep), fileItem("/away") });
    auto& program = app->delegate();
    program.preferences().setRecentItemsLimit(7);
    front.filePanels.saved = Url::fromPath("/out/all.plist");
    press("exportAll");
    program.preferences().setRecentItemsLimit(9);
    program.store().replaceAll({});

    import(*front.filePanels.saved, 1);
    EXPECT_EQ(state(), "0 items, 9");
    EXPECT_EQ(front.alerts.shown.back().message, "Import all that is in “all.plist”?");
    import(*front.filePanels.saved, 0);
    EXPECT_EQ(state(), "2 items, 7");
    EXPECT_TRUE(front.alerts.shown.back().informativeText.starts_with("Not on this computer:\n  “File or Folder”: /away\n"));
    auto const names = machine.files.names(machine.places.backupsFolder).value();
    auto const kept = std::find_if(names.begin(), names.end(), [](auto const& name) { return name.starts_with("Everything "); });
    ASSERT_NE(kept, names.end());
    import(machine.places.backupsFolder.appending(*kept), 0);
    EXPECT_EQ(state(), "0 items, 9");
}

} // namespace
} // namespace zv
