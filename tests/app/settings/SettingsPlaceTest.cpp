#include "app/settings/SettingsPlace.h"

#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(SettingsPlace, BringsBackWhatTheWindowCanHave)
{
    struct Row {
        SettingsPlace::Size size;
        std::int64_t tab;
        bool isKept;
        std::int64_t tabBack;
        char const* why;
    };
    Row const rows[] = {
        { { 900, 600 }, 2, true, 2, "as it was left" },
        { { 800, 400 }, 0, true, 0, "the smallest there is" },
        { { 799, 600 }, 3, false, 0, "too narrow, and a tab that is not there" },
        { { 900, 399 }, -1, false, 0, "too low" },
    };
    for (auto const& row : rows) {
        fakes::FakeUserDefaults defaults;
        SettingsPlace place(defaults);
        place.keepSize(row.size);
        place.keepTab(row.tab);
        EXPECT_EQ(place.size({ 800, 400 }), row.isKept ? std::optional(row.size) : std::nullopt) << row.why;
        EXPECT_EQ(place.tab(3), row.tabBack) << row.why;
    }
}

TEST(SettingsPlace, StoresOnlyWhatDiffers)
{
    fakes::FakeUserDefaults defaults;
    SettingsPlace place(defaults);
    place.keepTab(0);
    EXPECT_FALSE(defaults.storedObject("SettingsTab")) << "the first tab is where a window opens anyway";
    place.keepTab(1);
    place.keepTab(0);
    EXPECT_TRUE(defaults.storedObject("SettingsTab"));
}

} // namespace
} // namespace zv
