#include "app/model/MenuItemKind.h"
#include "app/model/NameTable.h"

#include <gtest/gtest.h>

namespace zv {

namespace {

MenuItemKind kindAt(int index) { return static_cast<MenuItemKind::Case>(index); }

} // namespace

TEST(MenuItemKind, EveryKindIsReadBackFromItsRawTextInAnyCase)
{
    for (int i = 0; i < MenuItemKind::fixedCount; ++i) {
        auto const kind = kindAt(i);
        std::string shouted(kind.rawValue());
        for (auto& c : shouted)
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        EXPECT_EQ(MenuItemKind::fromRawValue(kind.rawValue()), kind);
        EXPECT_EQ(MenuItemKind::fromRawValue(shouted), kind) << shouted;
        EXPECT_EQ(MenuItemKind::fromRawValue(shouted).rawValue(), kind.rawValue()) << "is written back in its own case";
    }
}

TEST(MenuItemKind, KeepsTheOddTextsOfTheOlderFormat)
{
    struct Row {
        MenuItemKind::Case kind;
        std::string_view rawValue, title;
    };
    Row const rows[] = {
        { MenuItemKind::separator, "Separator", "-" },
        { MenuItemKind::fsObject, "FSObject", "File or Folder" },
        { MenuItemKind::recentDocs, "RecentDocs", "Recent Documents" },
        { MenuItemKind::getMacOSXSoftware, "GetMacOSXSoftware", "Get macOS Software…" },
        { MenuItemKind::getMacOSXSoftware2, "GetMacOSXSoftware2", "Get macOS Software…" },
        { MenuItemKind::systemPrefs, "SystemPrefs", "System Settings" },
        { MenuItemKind::simpleSystemPrefs, "SimpleSystemPrefs", "System Settings…" },
        { MenuItemKind::restart, "Restart", "Restart…" },
        { MenuItemKind::restartForced, "RestartForced", "Restart" },
        { MenuItemKind::lockScreen, "Lock Screen", "Lock Screen" },
        { MenuItemKind::location, "Location", "Location" },
        { MenuItemKind::dockPosRight, "DockPosRight", "Position Dock on Right" },
        { MenuItemKind::menuCommand, "MenuCommand", "Menu Command" },
    };
    for (auto const& row : rows) {
        MenuItemKind const kind(row.kind);
        EXPECT_EQ(kind.rawValue(), row.rawValue);
        EXPECT_EQ(kind.defaultTitle(), row.title);
    }
}

TEST(MenuItemKind, ATextThatIsNotInTheTableIsCarriedUnchanged)
{
    for (std::string const text : { "LockScreen", "Teleport", "", "\xFF\xFE" }) {
        auto const kind = MenuItemKind::fromRawValue(text);
        EXPECT_EQ(kind, MenuItemKind::unknown);
        EXPECT_EQ(kind.rawValue(), text);
        EXPECT_EQ(kind.defaultTitle(), text);
        EXPECT_EQ(kind.unavailabilityReason(), "Unrecognized item kind “" + text + "”.");
        EXPECT_FALSE(kind.fillsItself());
    }
    EXPECT_NE(MenuItemKind::makeUnknown("a"), MenuItemKind::makeUnknown("b"));
}

TEST(MenuItemKind, OnlyTheRetiredCommandsCannotAct)
{
    for (int i = 0; i < MenuItemKind::fixedCount; ++i) {
        auto const kind = kindAt(i);
        EXPECT_EQ(kind.unavailabilityReason().has_value(), i >= MenuItemKind::openWith) << kind.rawValue();
        EXPECT_EQ(kind.isLegacy(), i >= MenuItemKind::openWith) << kind.rawValue();
    }
    auto const startOf = [](MenuItemKind const& kind) { return kind.unavailabilityReason()->substr(0, 34); };
    EXPECT_EQ(startOf(MenuItemKind::previewImage), "Acts on the Finder selection. Zant");
    EXPECT_EQ(startOf(MenuItemKind::addToZantheVellItems), "Acts on the Finder selection, so i");
    EXPECT_EQ(startOf(MenuItemKind::menuCommand), "Sent a Carbon menu command to the ");
}

TEST(NameTable, NamesThatDifferOnlyInCaseStopTheProgram)
{
    std::string_view const names[] = { "Sleep", "Restart", "SLEEP" };
    EXPECT_DEATH(NameTable { names }, "Duplicate values for key: 'sleep'");
}

} // namespace zv
