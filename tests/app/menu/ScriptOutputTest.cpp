#include "app/menu/ScriptOutput.h"
#include "platform/text/Text.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

/// "title(what it does)[children]", "-" for a separator.
std::string print(std::vector<ScriptEntry> const& entries)
{
    std::string text;
    for (auto const& entry : entries) {
        text += (text.empty() ? "" : " ") + (entry.isSeparator ? "-" : entry.title);
        auto does = entry.href + entry.program;
        for (auto const& argument : entry.arguments)
            does += "," + argument;
        does += entry.program.empty() || entry.inTerminal ? "" : "!";
        does += std::string(entry.refreshes ? "r" : "") + (entry.isAlternate ? "a" : "") + (entry.isDisabled ? "d" : "") + (entry.color ? "c" : "");
        does += entry.key ? entry.key->description() : "";
        text += does.empty() ? "" : "(" + does + ")";
        text += entry.children.empty() ? "" : "[" + print(entry.children) + "]";
    }
    return text;
}

TEST(ScriptOutput, IsReadAsItsFormatIsDocumented)
{
    struct Row {
        char const *output, *entries, *why;
    };
    Row const rows[] = {
        { "One\nTwo\r\n\n  \nThree", "One Two Three", "a line each" },
        { "a\n---\nb", "a - b", "a separator" },
        { "a|href=https://x.org/?q=1\nb | href=\"https://x.org/a b\"", "a(https://x.org/?q=1) b(https://x.org/a b)", "addresses, in quotes or not" },
        { "a | bash=/bin/x param2=two param1='one 1' param0=nil terminal=false refresh=true", "a(/bin/x,nil,one 1,two!r)", "arguments in their order" },
        { "a | shell=x | terminal=true", "a(x)", "the other name, and bars between" },
        { "a | key=cmd+shift+k\nb | shortcut=ctrl+e\nc | key=+", "a(⇧⌘K) b(⌃E) c", "shortcuts" },
        { "a | disabled=true href=x:y\nb | alternate=TRUE refresh=True", "a(x:yd) b(ra)", "flags in any case" },
        { "a\n--b\n----c\n--d\n-----\n--e\nf", "a[b[c] d - e] f", "submenus, and a separator in one" },
        { "--a\nb\n------c", "a b[c]", "a level that is not there is the nearest" },
        { "abcdef | length=3 size=12 font=x", "abc…", "fonts are the desktop's" },
        { "a | color=Red\nb | color=#12\nc | color=#ff0000,#f00\nd | color=red,", "a(c) b c(c) d", "colours" },
        { "a | nonsense\nb | =\nc | href", "a b c", "parameters that are none" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(print(parseScriptOutput(row.output)), row.entries) << row.why;
}

TEST(ScriptOutput, ColoursCanBeReadOnEveryGround)
{
    for (auto const* text : { "red", "#FF0", "navy", "white", "black", "#00f, #101010", "#80808000" }) {
        for (Rgb const ground : { 0xffffff, 0xf0f0f0, 0x808080, 0x2c2c2c, 0x000000 })
            EXPECT_GE(contrastOf(readableOn(ground, parseTextColor(text).value()), ground), 4.5) << text << " on " << ground;
    }
    EXPECT_EQ(readableOn(0xffffff, parseTextColor("#900,#f88").value()), 0x990000U) << "what can be read stays";
    EXPECT_EQ(readableOn(0x000000, parseTextColor("#900,#f88").value()), 0xff8888U);
}

TEST(ScriptOutput, StaysWithinItsLimits)
{
    std::string lines, deep = "a\n";
    for (int i = 0; i < 5000; ++i)
        lines += "line\n";
    for (int i = 1; i < 40; ++i)
        deep += std::string(static_cast<std::size_t>(i) * 2, '-') + "b\n";
    EXPECT_EQ(parseScriptOutput(lines).size(), ScriptLimits::lines);
    EXPECT_LT(parseScriptOutput(std::string(100'000, 'x')).at(0).title.size(), 400U);
    std::size_t levels = 0;
    auto const parsed = parseScriptOutput(deep);
    for (auto const* list = &parsed; !list->empty(); list = &list->back().children)
        ++levels;
    EXPECT_LE(levels, ScriptLimits::depth + 1);
    auto const hostile = parseScriptOutput("\xFF\xFE|\xFF=\xFF key=\xFF\n\x1B[31mred\n|\n||||=||\n'\"|a='\"");
    for (auto const& entry : hostile)
        EXPECT_TRUE(isValidUtf8(entry.title));
}

} // namespace
} // namespace zv
