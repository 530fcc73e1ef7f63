#include "platform/linux/entries/StartTrust.h"
#include "platform/linux/entries/Startable.h"

#include "tests/linux/TemporaryFolder.h"

#include <sys/stat.h>

namespace zv {
namespace {

using tests::TemporaryFolder;

constexpr uid_t somebodyElse = 4'000'000'000;

struct StartTrustTest : testing::Test {
    std::string make(std::string const& name, mode_t mode, std::string const& text = "")
    {
        auto const path = disk.write(name, text);
        chmod(path.c_str(), mode);
        return path;
    }
    TemporaryFolder disk;
};

TEST_F(StartTrustTest, WhatWasInstalledOrMadeExecutableStartsUnasked)
{
    disk.makeFolder("share/applications/vendor");
    disk.makeFolder("share/applications-too");
    disk.makeFolder("home");
    disk.link("share-by-link", disk.path("share"));
    auto const folders = std::vector { disk.path("share-by-link/applications"), disk.path("none") };
    make("home/plain", 0644);
    make("home/executable", 0744);
    make("home/for others", 0655);
    make("share/applications/vendor/a", 0644);
    make("share/applications-too/a", 0644);
    disk.link("home/to installed", "../share/applications/vendor/a");
    disk.link("share/applications/export", disk.path("home/plain"));
    disk.link("home/to export", disk.path("share/applications/export"));
    disk.link("home/to plain", "plain");
    ASSERT_EQ(mkfifo(disk.path("home/pipe").c_str(), 0755), 0);

    struct Row {
        char const* path;
        bool trusted;
        bool byOthers; ///< trusted when somebody else owns it
        bool canBe;
        char const* why;
    };
    Row const rows[] = {
        { "home/plain", false, false, true, "anybody may have put it there" },
        { "home/executable", true, false, true, "its user has said so" },
        { "home/for others", false, false, true, "the bit is the owner's" },
        { "share/applications/vendor/a", true, true, true, "installed, below a folder that a link names" },
        { "share/applications-too/a", false, false, true, "a longer name is another folder" },
        { "home/to installed", true, true, true, "a link counts as where it leads" },
        { "share/applications/export", true, true, true, "a link that was installed counts, wherever it leads" },
        { "home/to export", true, true, true, "also on the way" },
        { "home/to plain", false, false, true, "and else what it leads to" },
        { "home/pipe", false, false, false, "no regular file" },
        { "home/gone", false, false, false, "nothing" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(std::string(row.path) + ": " + row.why);
        auto const path = disk.path(row.path);
        StartTrust const own(folders, { .system = somebodyElse });
        EXPECT_EQ(own.trusts(path), row.trusted);
        EXPECT_EQ(own.canBeTrusted(path), row.canBe);
        StartTrust const others(folders, { .system = somebodyElse, .self = somebodyElse - 1 });
        EXPECT_EQ(others.trusts(path), row.byOthers);
        EXPECT_FALSE(others.canBeTrusted(path));
    }
    EXPECT_TRUE(StartTrust({}, { .system = geteuid(), .self = somebodyElse }).trusts(disk.path("home/plain"))) << "the system's own";
    EXPECT_FALSE(keepsExecutableBits(0x2011BAB0)) << "on a stick every file seems executable";
    EXPECT_TRUE(keepsExecutableBits(0xEF53));
}

TEST_F(StartTrustTest, AProgramHasAProgramsNameAndBeginning)
{
    struct Row {
        char const* name;
        mode_t mode;
        char const* text;
        bool isProgram;
        char const* why;
    };
    Row const rows[] = {
        { "tool", 0755, "#!/bin/sh", true, "a script" },
        { "elf-1.2", 0755, "\177ELF\2", true, "a version is no extension" },
        { "Setup.RUN", 0755, "\177ELF", true, "a program's extension" },
        { "A.AppImage", 0644, "\177ELF", true, "a downloaded image lacks the bit" },
        { "B.AppImage", 0644, "text", false, "an image in name alone" },
        { "tool without bit", 0644, "#!/bin/sh", false, "a text" },
        { "README", 0755, "Read me", false, "all seem executable on a stick" },
        { "invoice.pdf", 0755, "#!/bin/sh", false, "a document's name opens as a document" },
        { "x.desktop", 0644, "", true, "an entry" },
        { "empty", 0755, "", false, "nothing to run" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(startableAt(make(row.name, row.mode, row.text)).has_value(), row.isProgram) << row.name << ": " << row.why;
    ASSERT_EQ(mkfifo(disk.path("pipe").c_str(), 0755), 0);
    ASSERT_EQ(mkfifo(disk.path("pipe.desktop").c_str(), 0755), 0);
    EXPECT_FALSE(startableAt(disk.path("pipe")) || startableAt(disk.path("pipe.desktop")) || startableAt(disk.path("gone")));
    make("Tool.AppDir/AppRun", 0755);
    make("Plain.app/AppRun", 0644);
    EXPECT_EQ(startableAt(disk.path("Tool.AppDir"))->file, disk.path("Tool.AppDir/AppRun"));
    EXPECT_FALSE(startableAt(disk.path("Plain.app")));
}

} // namespace
} // namespace zv
