#include "platform/linux/entries/DesktopEntry.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>

namespace zv {
namespace {

DesktopAudience const austrian { { "de_AT", "de" }, { "ubuntu", "XFCE" } };

TEST(DesktopEntry, FindsTheNameInTheBestLanguage)
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
        { "Name=bad\xFF\n", "bad\xFF", "not UTF-8" },
        { "Comment=None\n", "", "no name" },
        { "Name=First\n[Desktop Action new]\nName=Second\nNoDisplay=true\n", "First", "other groups say nothing" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        auto const text = "# comment\n[Desktop Entry]\n" + row.lines;
        DesktopEntry const entry(text);
        EXPECT_EQ(entry.translated("Name", austrian.languages), row.name);
        EXPECT_TRUE(entry.isListed(austrian.desktops));
    }
}

TEST(DesktopEntry, ListsWhatIsMeantForThisDesktop)
{
    struct Row {
        std::string lines;
        bool isListed;
    };
    Row const rows[] = {
        { "", true },
        { "NoDisplay=true\n", false },
        { "NoDisplay=false\n", true },
        { "NoDisplay=true\nNoDisplay=false\n", true },
        { "Hidden=true\n", false },
        { "OnlyShowIn=GNOME;\n", false },
        { "OnlyShowIn=GNOME;XFCE;\n", true },
        { "NotShowIn=XFCE\n", false },
        { "NotShowIn=KDE;GNOME;\n", true },
        { "OnlyShowIn=ubuntu;\nNotShowIn=XFCE;\n", true },
        { "OnlyShowIn=\n", false },
        { "OnlyShowIn=xfce;\n", false },
    };
    for (auto const& row : rows) {
        auto const text = "[Desktop Entry]\nName=N\n" + row.lines;
        EXPECT_EQ(DesktopEntry(text).isListed(austrian.desktops), row.isListed) << row.lines;
    }
}

TEST(DesktopEntry, WhatIsNoEntryHasNoName)
{
    for (auto const* text : { "", "Name=Loose\n", "[Other]\nName=X\nNoDisplay=true\n", "[Desktop Entry", "\n\n=\n" }) {
        DesktopEntry const entry(text);
        EXPECT_EQ(entry.text("Name"), "") << text;
        EXPECT_TRUE(entry.isListed(austrian.desktops)) << text;
    }
}

TEST(DesktopEntry, ReadsALongMainGroupButNoFurther)
{
    tests::TemporaryFolder const folder;
    std::string translations;
    for (int i = 0; i < 2000; ++i)
        translations += "Comment[x" + std::to_string(i) + "]=text of some length\n";
    folder.write("long.desktop", "[Desktop Entry]\n" + translations + "Name=At the end\n\n[Desktop Action x]\n" + translations);
    folder.write("huge.desktop", "[Desktop Entry]\nName=Early\n" + std::string(4 << 20, 'x'));
    int const open = ::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY);
    auto const nameIn = [open](char const* file) {
        auto const text = readDesktopEntry(open, file);
        EXPECT_LT(text.size(), 600u << 10) << file;
        return DesktopEntry(text).text("Name");
    };
    EXPECT_EQ(nameIn("long.desktop"), "At the end");
    EXPECT_EQ(nameIn("huge.desktop"), "Early");
    EXPECT_EQ(nameIn("missing.desktop"), "");
    close(open);
}

} // namespace
} // namespace zv
