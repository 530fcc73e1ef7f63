#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace zv {
namespace {

TEST(UserDefaults, ReadsBooleansAndIntegersLeniently)
{
    struct Row {
        PropertyList value;
        bool boolean;
        std::int64_t integer;
        std::string why;
    };
    Row const rows[] = {
        { true, true, 1, "a boolean" },
        { false, false, 0, "a boolean" },
        { 3, true, 3, "an integer" },
        { -3, true, -3, "a negative integer" },
        { 0, false, 0, "zero" },
        { UINT64_MAX, true, INT64_MAX, "above the signed range" },
        { 2.9, true, 2, "a real is cut" },
        { 0.5, true, 0, "a real other than zero is true" },
        { 1e300, true, INT64_MAX, "a real too large" },
        { -1e300, true, INT64_MIN, "a real too small" },
        { std::nan(""), true, 0, "no number" },
        { "YES", true, 0, "a text for true" },
        { "yes", true, 0, "a text for true" },
        { "TRUE", true, 0, "a text for true" },
        { " +01", true, 1, "a text for true" },
        { "00", false, 0, "zero" },
        { "NO", false, 0, "any other text" },
        { "", false, 0, "an empty text" },
        { " 250 items", true, 250, "as far as it is a number" },
        { "+7", true, 7, "a sign" },
        { "-12.9", true, -12, "as far as it is an integer" },
        { "99999999999999999999", true, INT64_MAX, "beyond the range" },
        { "-99999999999999999999", true, INT64_MIN, "beyond the range" },
        { PropertyListArray { 1 }, false, 0, "no scalar" },
        { PropertyListDictionary { { "a", 1 } }, false, 0, "no scalar" },
        { PropertyListDate { 5 }, false, 0, "a date is no number" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        fakes::FakeUserDefaults defaults;
        defaults.stored.set("Key", row.value);
        EXPECT_EQ(defaults.boolForKey("Key"), row.boolean);
        EXPECT_EQ(defaults.integerForKey("Key"), row.integer);
    }
}

} // namespace
} // namespace zv
