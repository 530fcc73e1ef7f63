#include "app/settings/RecorderRules.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(RecorderRules, TurnKeyPressesIntoShortcuts)
{
    using enum RecorderOutcome::Kind;
    auto const none = ModifierMask::none, shift = ModifierMask::shift, control = ModifierMask::control, command = ModifierMask::command;
    struct Row {
        std::string why;
        KeyPress press;
        RecorderOutcome::Kind kind;
        std::string shortcut;
    };
    Row const rows[] = {
        { "Escape alone cancels", { 53, "\x1B", none }, cancelled, "" },
        { "with a modifier it is a key", { 53, "\x1B", control }, captured, "⌃⎋" },
        { "a named key may stand alone", { 96, "\xEF\x9C\x88", none }, captured, "F5" },
        { "a letter in upper case", { 0, "a", command | shift }, captured, "⇧⌘A" },
        { "a bare letter is taken here", { 0, "a", none }, captured, "A" },
        { "a digit", { 18, "1", command }, captured, "⌘1" },
        { "a symbol", { 24, "=", command }, captured, "⌘=" },
        { "a letter of another script", { 0, "ф", command }, captured, "⌘Ф" },
        { "the keypad's digits too", { 83, "1", control }, captured, "⌃1" },
        { "the space bar records nothing", { 49, " ", command }, ignored, "" },
        { "a dead key has no characters", { 33, "", command }, ignored, "" },
        { "several characters are no key", { 33, "ab", command }, ignored, "" },
        { "a control character", { 36, "\r", command }, ignored, "" },
        { "bytes that are no text", { 0, "\xFF", command }, ignored, "" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        auto const outcome = recorderOutcome(row.press);
        EXPECT_EQ(outcome.kind, row.kind);
        EXPECT_EQ(outcome.spec ? outcome.spec->description() : "", row.shortcut);
    }
    EXPECT_TRUE(recorderOutcome({ 96, "", none }).spec->noCommand);
    EXPECT_EQ(recorderOutcome({ 27, "ß", none }).spec->trigger, KeyEquivalentSpec::Trigger::character("ß")) << "one letter stays one";
    EXPECT_EQ(recorderOutcome({ 96, "", none }).spec->trigger, KeyEquivalentSpec::Trigger::named("f5"));
}

TEST(RecorderRules, SayWhatAShortcutTakesFromOthers)
{
    auto const warning = [](char const* key, bool control, bool command, SystemKind system) {
        return shortcutWarning({ .trigger = KeyEquivalentSpec::Trigger::character(key), .control = control, .noCommand = !command }, system);
    };
    EXPECT_EQ(warning("K", false, false, SystemKind::macOS), "It will be taken from every program, also while you type.");
    EXPECT_EQ(warning("C", true, false, SystemKind::linuxDesktop), "This is “Copy” elsewhere. It will be taken from every program.");
    EXPECT_EQ(warning("C", true, false, SystemKind::macOS), "");
    EXPECT_EQ(warning("C", false, true, SystemKind::macOS), "This is “Copy” elsewhere. It will be taken from every program.");
}

} // namespace
} // namespace zv
