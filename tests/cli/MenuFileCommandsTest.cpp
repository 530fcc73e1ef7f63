#include "tests/cli/CommandLineFixture.h"

#include "app/model/MenuDocument.h"
#include "base/Log.h"
#include "platform/text/PropertyListFormat.h"

namespace zv {

namespace {

struct MenuFileCommandsTest : CommandLineFixture {
    MenuItem item = MenuItem::ofKind(MenuItemKind::lockScreen);
    std::string document = fakes::textOf(menuDocument({ item }).value());

    [[nodiscard]] std::vector<MenuItem> storedMenu() const { return menuItemsFromPropertyList(*defaults.stored.find("Menu")).value(); }
};

std::string const olderMenu = "<plist version=\"1.0\"><dict><key>MenuDesc</key><array><dict><key>Kind</key><string>Sleep</string></dict>"
                              "<dict><key>Kind</key><string>Submenu</string><key>Items</key><array><dict><key>Kind</key><string>Restart</string></dict>"
                              "</array></dict></array></dict></plist>";

} // namespace

TEST_F(MenuFileCommandsTest, WhatIsImportedIsExportedAgain)
{
    addFile("/here/menu.plist", document);
    EXPECT_EQ(run({ "import", "menu.plist" }), (Outcome { 0, "Imported 1 item.\n", "" }));
    EXPECT_EQ(storedMenu(), std::vector { item });
    EXPECT_EQ(run({ "export", "/out/copy.plist" }), (Outcome { 0, "", "" }));
    EXPECT_EQ(fakes::textOf(files.read(Url::fromPath("/out/copy.plist")).value()), document);
}

TEST_F(MenuFileCommandsTest, StandardStreamsStandForFiles)
{
    input = document;
    EXPECT_EQ(run({ "import", "-" }).status, 0);
    EXPECT_EQ(storedMenu(), std::vector { item });
    EXPECT_EQ(run({ "export", "-" }), (Outcome { 0, document, "" }));
}

TEST_F(MenuFileCommandsTest, CheckChangesNothing)
{
    addFile("/here/old.plist", olderMenu);
    EXPECT_EQ(run({ "import", "--check", "old.plist" }), (Outcome { 0, "old.plist is a menu of 3 items.\n", "" }));
    EXPECT_TRUE(defaults.stored.empty());
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(MenuFileCommandsTest, ABadFileIsNamedAndNeverReplacesTheMenu)
{
    input = document;
    run({ "import", "-" });
    auto const before = defaults.stored;
    auto broken = document;
    broken.replace(broken.find("<key>isHidden</key>"), 19, "<key>isHiden</key>");
    addFile("/here/broken.plist", broken);
    addFile("/here/garbage.plist", "\x01\x02");
    std::string const line = "zanthe-vell: broken.plist: item 1: \"isHidden\" is missing\n";
    EXPECT_EQ(run({ "import", "broken.plist" }), (Outcome { 1, "", line }));
    EXPECT_EQ(run({ "import", "--check", "broken.plist" }), (Outcome { 1, "", line }));
    EXPECT_EQ(run({ "import", "garbage.plist" }).status, 1);
    EXPECT_EQ(run({ "import", "missing.plist" }), (Outcome { 1, "", "zanthe-vell: missing.plist: No such file or directory\n" }));
    EXPECT_EQ(defaults.stored, before);
}

TEST_F(MenuFileCommandsTest, ImportKeepsABackupOfTheMenuItReplaces)
{
    input = document;
    run({ "import", "-" });
    input = fakes::textOf(menuDocument({}).value());
    run({ "import", "-" });
    auto const backups = MenuBackups({ files, time }, Url::fromPath("/data/Backups")).list();
    ASSERT_EQ(backups.size(), 1U);
    addFile("/here/backup.plist", fakes::textOf(files.read(backups[0].file).value()));
    run({ "import", "backup.plist" });
    EXPECT_EQ(storedMenu(), std::vector { item });
}

TEST_F(MenuFileCommandsTest, AnUnreadableStoredMenuIsNotExportedAsAnother)
{
    defaults.stored.set("Menu", "text");
    EXPECT_EQ(run({ "export", "-" }),
        (Outcome { 1, "", "zanthe-vell: the stored menu cannot be read: the document is a string where an array of items is expected\n" }));
}

TEST_F(MenuFileCommandsTest, AFailedWriteIsAFailure)
{
    files.addFolder("/out");
    files.readOnly.insert("/out");
    EXPECT_EQ(run({ "export", "/out/menu.plist" }), (Outcome { 1, "", "zanthe-vell: /out/menu.plist: Read-only file system\n" }));
    std::vector<std::string> lines;
    LogCapture const capture([&](std::string const& text) { lines.push_back(text); });
    defaults.writing = Failure { "No space left on device" };
    input = document;
    EXPECT_EQ(run({ "import", "-" }), (Outcome { 1, "", "" }));
    EXPECT_EQ(lines, std::vector<std::string> { "Zanthe Vell: could not save menu to Menu: No space left on device" });
}

} // namespace zv
