#include "platform/linux/entries/DesktopEntryText.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>

namespace zv {
namespace {

DesktopAudience const austrian { { "de_AT", "de" }, { "ubuntu", "XFCE" } };

TEST(DesktopEntryText, FindsTheNameInTheBestLanguage)
{
    struct Row {
        std::string lines, name, why;
    };
    Row const rows[] = {
        { "Name=Files\n", "Files", "" },
        { "Name[de]=Dateien\nName=Files\nName[fr]=Fichiers\n", "Dateien", "" },
        { "Name=Files\nName[de]=Dateien\nName[de_AT]=Ordna\n", "Ordna", "the country's own" },
        { "Name[de_AT]=Ordna\nName[de]=Dateien\nName=Files\n", "Ordna", "in any order" },
        { " Name = Files \r\n", "Files", "blanks around" },
        { "Name=Two\\nlines\\s\\\\ \\x\n", "Two\nlines \\ \\x", "escapes" },
        { "#Name=No\nNames=No\nName[de=No\nName=Yes\n", "Yes", "what only looks like it" },
        { "Name=bad\xFF\n", "bad\uFFFD", "not UTF-8" },
        { "Comment=None\n", "", "no name" },
        { "Name=First\n[Desktop Action new]\nName=Second\nNoDisplay=true\n", "First", "other groups say nothing" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        auto const entry = DesktopEntryText::parse("# comment\n[Desktop Entry]\n" + row.lines, austrian);
        EXPECT_EQ(entry.name, row.name);
        EXPECT_TRUE(entry.isListed);
    }
}

TEST(DesktopEntryText, ListsWhatIsMeantForThisDesktop)
{
    struct Row {
        std::string lines;
        bool isListed;
    };
    Row const rows[] = {
        { "", true },
        { "NoDisplay=true\n", false },
        { "NoDisplay=false\n", true },
        { "Hidden=true\n", false },
        { "OnlyShowIn=GNOME;\n", false },
        { "OnlyShowIn=GNOME;XFCE;\n", true },
        { "NotShowIn=XFCE\n", false },
        { "NotShowIn=KDE;GNOME;\n", true },
        { "OnlyShowIn=ubuntu;\nNotShowIn=XFCE;\n", true },
        { "OnlyShowIn=\n", false },
        { "OnlyShowIn=xfce;\n", false },
    };
    for (auto const& row : rows)
        EXPECT_EQ(DesktopEntryText::parse("[Desktop Entry]\nName=N\n" + row.lines, austrian).isListed, row.isListed) << row.lines;
}

TEST(DesktopEntryText, WhatIsNoEntryHasNoName)
{
    for (auto const* text : { "", "Name=Loose\n", "[Other]\nName=X\nNoDisplay=true\n", "[Desktop Entry", "\n\n=\n" }) {
        auto const entry = DesktopEntryText::parse(text, austrian);
        EXPECT_EQ(entry.name, "") << text;
        EXPECT_TRUE(entry.isListed) << text;
    }
}

TEST(DesktopEntryText, ReadsALongMainGroupButNoFurther)
{
    tests::TemporaryFolder const folder;
    std::string translations;
    for (int i = 0; i < 2000; ++i)
        translations += "Comment[x" + std::to_string(i) + "]=text of some length\n";
    folder.write("long.desktop", "[Desktop Entry]\n" + translations + "Name=At the end\n\n[Desktop Action x]\n" + translations);
    folder.write("huge.desktop", "[Desktop Entry]\nName=Early\n" + std::string(4 << 20, 'x'));
    int const open = ::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY);
    EXPECT_EQ(DesktopEntryText::read(open, "long.desktop", austrian).name, "At the end");
    EXPECT_EQ(DesktopEntryText::read(open, "huge.desktop", austrian).name, "Early");
    EXPECT_EQ(DesktopEntryText::read(open, "missing.desktop", austrian).name, "");
    close(open);
}

} // namespace
} // namespace zv
