#include "app/hotkeys/KeyboardLayout.h"

#include "tests/fakes/FakeHotkeys.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

struct KeyboardLayoutTest : testing::Test {
    fakes::FakeKeyboardLayoutSource source;
    Notifications notifications;
    KeyboardLayout layout { source, notifications };
};

TEST_F(KeyboardLayoutTest, AnswersTheKeyThatTypesACharacterAlone)
{
    source.set({
        { { 14, "e" }, { 7, "я" }, { 49, " " }, { 27, "ss" }, { 30, "-" }, { 78, "-" }, { 33, "e\u0301" } },
        { { 7, "x" }, { 8, "e" }, { 9, "v" } },
    });
    struct Row {
        char const* character;
        std::optional<std::uint16_t> code;
        char const* why;
    };
    Row const rows[] = {
        { "E", 14, "case is ignored" },
        { "Я", 7, "in every alphabet" },
        { "x", 7, "a second layer lends what the first lacks, on the same key" },
        { "v", 9, "and on others" },
        { "e", 14, "but takes nothing from it" },
        { "-", 30, "the lowest key code wins" },
        { "s", 27, "the first character of what a key types" },
        { "e\u0301", 33, "a character is what a reader takes for one" },
        { " ", std::nullopt, "white space is never in the table" },
        { "q", std::nullopt, "no key types it" },
        { "", std::nullopt, "nothing" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(layout.keyCode(row.character), row.code) << row.why;
    struct Press {
        std::uint16_t code;
        std::vector<std::string> keys;
        char const* why;
    };
    Press const presses[] = {
        { 14, { "e" }, "what it types" },
        { 8, {}, "not what an earlier layer has on another key" },
        { 9, { "v" }, "what a second layer lends" },
        { 53, { "\x1B" }, "a named key" },
        { 122, { "\uF704" }, "F1" },
        { 0xFFFF, { "ü" }, "an unknown place" },
    };
    for (auto const& press : presses)
        EXPECT_EQ(layout.keyEquivalents({ press.code, "Ü" }), press.keys) << press.why;
    EXPECT_EQ(source.readings, 1) << "one table for all questions";
}

TEST_F(KeyboardLayoutTest, BuildsNothingBeforeItIsAsked)
{
    EXPECT_EQ(layout.keyCode(""), std::nullopt);
    EXPECT_EQ(source.readings, 0);
    EXPECT_FALSE(source.onChanged);
}

TEST_F(KeyboardLayoutTest, AnnouncesEachChangeOnceAndReadsAnew)
{
    int announced = 0;
    auto token = notifications.observe("ZantheVell.keyboardLayoutChanged", [&] { ++announced; });
    source.set({ { { 6, "z" } } });
    EXPECT_EQ(layout.keyCode("z"), 6);

    source.set({ { { 16, "z" } } });
    source.onChanged();
    EXPECT_EQ(announced, 1);
    EXPECT_EQ(source.readings, 1) << "the table is built when it is asked for";
    EXPECT_EQ(layout.keyCode("z"), 16);

    token = {};
    source.onChanged();
    EXPECT_EQ(announced, 1);
}

} // namespace
} // namespace zv
