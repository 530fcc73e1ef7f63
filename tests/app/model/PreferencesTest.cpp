#include "app/model/Preferences.h"

#include "base/Log.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zv {

namespace {

struct PreferencesTest : testing::Test {
    fakes::FakeUserDefaults defaults;
    Preferences& preferences()
    {
        if (!m_preferences)
            m_preferences.emplace(defaults);
        return *m_preferences;
    }

private:
    std::optional<Preferences> m_preferences;
};

} // namespace

TEST_F(PreferencesTest, AFreshAccountHasTheDefaultsAndStoresNothing)
{
    EXPECT_EQ(preferences().maximumScanDepth(), 10);
    EXPECT_TRUE(defaults.writes.empty());
    EXPECT_EQ(defaults.registered,
        (PropertyListDictionary { { "ReplaceAppleMenu", true }, { "ShowStatusItem", true }, { "RainbowAppleLogo", true }, { "ShowIcons", true },
            { "ShowHiddenFiles", false }, { "SortFoldersFirst", true }, { "RecentItemsLimit", 20 }, { "ScanDepth", 10 }, { "MaximumItemsPerFolder", 250 },
            { "HotkeyPrescanDepth", 0 }, { "RememberChoices", true }, { "ShowCommandIcons", false } }));
}

TEST_F(PreferencesTest, EachSettingIsWrittenUnderItsOwnKeyWithItsType)
{
    preferences().setReplacesAppleMenu(false);
    preferences().setShowsStatusItem(false);
    preferences().setDrawsRainbowAppleLogo(false);
    preferences().setShowIcons(false);
    preferences().setShowHiddenFiles(true);
    preferences().setSortFoldersFirst(false);
    preferences().setRecentItemsLimit(5);
    preferences().setMaximumScanDepth(3);
    preferences().setMaximumItemsPerFolder(500);
    preferences().setHotkeyPrescanDepth(-1);
    preferences().setRemembersChoices(false);
    preferences().setShowCommandIcons(true);
    EXPECT_EQ(defaults.stored,
        (PropertyListDictionary { { "ReplaceAppleMenu", false }, { "ShowStatusItem", false }, { "RainbowAppleLogo", false }, { "ShowIcons", false },
            { "ShowHiddenFiles", true }, { "SortFoldersFirst", false }, { "RecentItemsLimit", 5 }, { "ScanDepth", 3 }, { "MaximumItemsPerFolder", 500 },
            { "HotkeyPrescanDepth", -1 }, { "RememberChoices", false }, { "ShowCommandIcons", true } }));
    EXPECT_EQ(preferences().maximumScanDepth(), 3);
}

TEST_F(PreferencesTest, WhatWasStoredBeforeIsRead)
{
    defaults.stored = { { "ScanDepth", 3 }, { "ShowIcons", false }, { "ShowHiddenFiles", 1 } };
    EXPECT_EQ(preferences().maximumScanDepth(), 3);
    EXPECT_FALSE(preferences().showIcons());
    EXPECT_TRUE(preferences().showHiddenFiles());
}

TEST_F(PreferencesTest, OnlyARealChangeOfThatSettingIsAnnounced)
{
    int told = 0;
    auto const observation = withObservationTracking([&] { (void)preferences().recentItemsLimit(); }, [&] { ++told; });
    preferences().setRecentItemsLimit(20);
    preferences().setShowIcons(false);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(defaults.writes, std::vector<std::string> { "ShowIcons" });
    std::int64_t seen = 0;
    auto const second = withObservationTracking([&] { (void)preferences().recentItemsLimit(); }, [&] { seen = preferences().recentItemsLimit(); });
    preferences().setRecentItemsLimit(7);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(seen, 7) << "told after the value is stored";
}

TEST_F(PreferencesTest, FollowsWhatAnotherProcessStoredWithoutWriting)
{
    (void)preferences();
    int told = 0;
    auto const observation = withObservationTracking([&] { (void)preferences().showIcons(); }, [&] { ++told; });
    auto const other = withObservationTracking([&] { (void)preferences().showHiddenFiles(); }, [&] { told += 100; });
    defaults.stored.set("ShowIcons", false);
    preferences().reload();
    EXPECT_FALSE(preferences().showIcons());
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(PreferencesTest, AFailedWriteIsOneLineAndTheValueStands)
{
    std::vector<std::string> lines;
    LogCapture const capture([&](std::string const& line) { lines.push_back(line); });
    defaults.writing = Failure { "Read-only file system" };
    preferences().setShowIcons(false);
    EXPECT_EQ(lines, std::vector<std::string> { "Zanthe Vell: could not save ShowIcons: Read-only file system" });
    EXPECT_FALSE(preferences().showIcons());
}

} // namespace zv
