#include "tests/cli/CommandLineFixture.h"

#include "base/Log.h"

namespace zv {

namespace {

using PrefsTest = CommandLineFixture;

} // namespace

TEST_F(PrefsTest, ListsEverySettingWithItsValue)
{
    defaults.stored = { { "ScanDepth", 3 } };
    auto const all = run({ "prefs" });
    EXPECT_EQ(all.status, 0);
    EXPECT_EQ(run({ "prefs", "read" }), all);
    EXPECT_NE(all.out.find("ScanDepth              3 "), std::string::npos) << all.out;
    EXPECT_NE(all.out.find("MaximumItemsPerFolder  250 "), std::string::npos) << all.out;
    for (auto const& description : Preferences::descriptions())
        EXPECT_NE(all.out.find(std::string(description.key)), std::string::npos) << description.key;
}

TEST_F(PrefsTest, WritesAValueOfTheSettingsOwnType)
{
    struct Row {
        std::string key, value;
        PropertyList stored;
        std::string read;
    };
    Row const rows[] = {
        { "ShowIcons", "false", false, "false" },
        { "ShowIcons", "yes", true, "true" },
        { "ShowHiddenFiles", "1", true, "true" },
        { "ShowHiddenFiles", "off", false, "false" },
        { "ScanDepth", "3", 3, "3" },
        { "RecentItemsLimit", "0", 0, "0" },
        { "MaximumItemsPerFolder", "1000000", 1'000'000, "1000000" },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(run({ "prefs", "write", row.key, row.value }), (Outcome { 0, "", "" }));
        EXPECT_EQ(*defaults.stored.find(row.key), row.stored) << row.value;
        EXPECT_EQ(run({ "prefs", "read", row.key }).out, row.read + "\n");
    }
}

TEST_F(PrefsTest, NonsenseIsRefusedAndNothingIsWritten)
{
    struct Row {
        std::string key, value;
    };
    Row const rows[] = { { "ShowIcons", "maybe" }, { "ShowIcons", "" }, { "ShowIcons", "2" }, { "ShowIcons", "TRUE " }, { "ScanDepth", "ten" },
        { "ScanDepth", "-1" }, { "ScanDepth", "3x" }, { "ScanDepth", "1.5" }, { "ScanDepth", "" }, { "ScanDepth", "1000001" },
        { "ScanDepth", "99999999999999999999" }, { "ScanDepth", "true" }, { "scandepth", "3" }, { "Menu", "x" }, { "", "x" } };
    for (auto const& row : rows) {
        auto const outcome = run({ "prefs", "write", row.key, row.value });
        EXPECT_EQ(outcome.status, 1) << row.key << ' ' << row.value;
        EXPECT_TRUE(outcome.err.starts_with("zanthe-vell: ")) << outcome.err;
    }
    EXPECT_TRUE(defaults.writes.empty());
    EXPECT_EQ(run({ "prefs", "write", "ScanDepth", "ten" }).err, "zanthe-vell: \"ten\" is no value of ScanDepth; it is a number from 0 to 1000000\n");
    EXPECT_EQ(run({ "prefs", "read", "LaunchCount" }).status, 1) << "no setting";
}

TEST_F(PrefsTest, ResetGivesTheDefaultAgain)
{
    run({ "prefs", "write", "ScanDepth", "3" });
    EXPECT_EQ(run({ "prefs", "reset", "ScanDepth" }).status, 0);
    EXPECT_FALSE(defaults.stored.contains("ScanDepth"));
    EXPECT_EQ(run({ "prefs", "read", "ScanDepth" }).out, "10\n");
    EXPECT_EQ(run({ "prefs", "reset", "Nothing" }).status, 1);
}

TEST_F(PrefsTest, WhatAnAdministratorLockedIsReadAndNotWritten)
{
    defaults.locked = "ScanDepth";
    defaults.given = { { "ScanDepth", 2 } };
    for (std::vector<std::string> const& arguments : { std::vector<std::string> { "prefs", "write", "ScanDepth", "3" }, { "prefs", "reset", "ScanDepth" } })
        EXPECT_EQ(run(arguments), (Outcome { 1, "", "zanthe-vell: ScanDepth is locked by an administrator of this computer\n" }));
    EXPECT_EQ(run({ "prefs", "read", "ScanDepth" }).out, "2\n");
    EXPECT_NE(run({ "prefs" }).out.find("open as submenus (locked)"), std::string::npos);
}

TEST_F(PrefsTest, AFailedWriteIsAFailure)
{
    defaults.writing = Failure { "No space left on device" };
    EXPECT_EQ(run({ "prefs", "write", "ScanDepth", "3" }), (Outcome { 1, "", "zanthe-vell: could not save ScanDepth: No space left on device\n" }));
    EXPECT_EQ(run({ "prefs", "reset", "ScanDepth" }).status, 1);
}

} // namespace zv
