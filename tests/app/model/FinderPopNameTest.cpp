#include "app/model/FinderPopName.h"

#include <gtest/gtest.h>

namespace zv {

namespace {

std::string textOf(std::optional<KeyEquivalentSpec> const& hotkey) { return hotkey ? hotkey->description() : ""; }

} // namespace

TEST(FinderPopName, GivesAShortcutOnlyWhereItCannotSurprise)
{
    struct Row {
        std::string name, title, shortcut, why;
    };
    Row const rows[] = {
        { "Example-*[cmd+opt+E]*", "Example", "⌥⌘E", "the form that the help shows" },
        { "Example-*[cmd+opt+E]*.app", "Example.app", "⌥⌘E", "an extension may follow" },
        { "Notes-*[opt+N]*.txt", "Notes.txt", "⌥N", "Command is only there when it is written" },
        { "Tool-*[E]*", "Tool-*[E]*", "", "a bare letter would swallow typing" },
        { "Tool-*[sh+E]*", "Tool", "⇧E", "Shift alone is enough" },
        { "Tool-*[F5]*", "Tool", "F5", "a named key may stand alone" },
        { "Tool-*[esc]*", "Tool-*[esc]*", "", "bare Escape is refused" },
        { "Tool-*[ctrl+esc]*", "Tool", "⌃⎋", "Escape with a modifier" },
        { "Tool-*[cmd+E]*x", "Tool-*[cmd+E]*x", "", "only an extension may follow" },
        { "Tool-*[cmd+E]*.", "Tool.", "⌘E", "a dot is the start of one" },
        { "Tool-*[cmd+E]", "Tool-*[cmd+E]", "", "not closed" },
        { "A-*[cmd+E]*-*[cmd+F]*", "A-*[cmd+E]*", "⌘F", "the last annotation counts" },
        { "A-*[cmd+E]*-*[no]*", "A-*[cmd+E]*-*[no]*", "", "and no other" },
        { "A-*[cmd+E]*]*", "A-*[cmd+E]*]*", "", "up to the first end" },
        { "-*[cmd+E]*", "", "⌘E", "nothing but a shortcut" },
        { "[]", "[]", "", "plain brackets" },
        { "\xFF-*[cmd+E]*\xFE", "\xFF-*[cmd+E]*\xFE", "", "any bytes" },
        { "\xFF-*[cmd+E]*.\xFE", "\xFF.\xFE", "⌘E", "any bytes" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name + ": " + row.why);
        FinderPopName const name(row.name);
        EXPECT_EQ(name.title, row.title);
        EXPECT_EQ(name.sortName, row.name);
        EXPECT_FALSE(name.isSeparator);
        EXPECT_EQ(textOf(name.hotkey), row.shortcut);
    }
}

TEST(FinderPopName, TakesOffAnOrderingPrefixOfThreeCharacters)
{
    struct Row {
        std::string name, prefix, title;
    };
    Row const rows[] = {
        { "01)Mail", "01)", "Mail" },
        { "(1)Mail", "", "(1)Mail" },
        { "1()Mail", "", "1()Mail" },
        { "01)", "", "01)" },
        { "01)M", "01)", "M" },
        { "abc", "", "abc" },
        { "é1)Mail", "é1)", "Mail" },
        { "👩‍👩‍👧1)M", "👩‍👩‍👧1)", "M" },
        { "e\u0301\u0301\u0301\u03012)x", "e\u0301\u0301\u0301\u03012)", "x" },
        { "01)\u0301", "", "01)\u0301" },
        { "01)\u0301M", "", "01)\u0301M" },
        { "é)ail", "", "é)ail" },
        { "01)-***", "01)", "" },
        { "01)Mail-*[cmd+M]*", "01)", "Mail" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        FinderPopName const name(row.name);
        EXPECT_EQ(name.orderingPrefix.value_or(""), row.prefix);
        EXPECT_EQ(name.title, row.title);
        EXPECT_EQ(name.sortName, row.name);
    }
}

TEST(FinderPopName, ASeparatorHasNeitherTitleNorShortcut)
{
    for (auto const* text : { "-***", "Line-***", "Line-***.txt", "01)-***", "A-*[cmd+E]*-***" }) {
        FinderPopName const name(text);
        EXPECT_TRUE(name.isSeparator) << text;
        EXPECT_EQ(name.title, "") << text;
        EXPECT_FALSE(name.hotkey) << text;
    }
    for (auto const* text : { "-**", "***", "-***x", "-***.a b", "", "-" })
        EXPECT_FALSE(FinderPopName(text).isSeparator) << text;
}

TEST(ParseShortcutText, KnowsTheModifierWordsInAnyCaseAndWithBlanks)
{
    struct Row {
        std::string text, shown;
    };
    Row const rows[] = {
        { "cmd+e", "⌘E" },
        { "COMMAND+e", "⌘E" },
        { "opt+e", "⌥E" },
        { "Alt+e", "⌥E" },
        { "option+e", "⌥E" },
        { "control+e", "⌃E" },
        { "ctrl+e", "⌃E" },
        { "cntl+e", "⌃E" },
        { "shift+e", "⇧E" },
        { "sh+e", "⇧E" },
        { " cmd + e ", "⌘E" },
        { "\u00A0cmd\u2003+e", "⌘E" },
        { "e+cmd", "⌘E" },
        { "cmd+cmd+e", "⌘E" },
        { "++cmd++e++", "⌘E" },
        { "cmd+F15", "⌘F15" },
        { "cmd+é", "⌘É" },
        { "sh+cmd+ctrl+opt+7", "⌃⌥⇧⌘7" },
        { "", "" },
        { "+", "" },
        { "cmd", "" },
        { "cmd+ +e", "" },
        { "cmd+e+f", "" },
        { "cmd+e+e", "" },
        { "cmd+home", "" },
        { "cmd+f16", "" },
        { "hyper+e", "" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(textOf(parseShortcutText(row.text)), row.shown) << row.text;
    EXPECT_EQ(parseShortcutText("cmd+F5")->trigger, KeyEquivalentSpec::Trigger::named("f5"));
}

} // namespace zv
