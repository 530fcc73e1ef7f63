#include "platform/linux/apps/Launching.h"

#include "platform/linux/apps/FileApplications.h"
#include "platform/linux/posix/LaunchContext.h"
#include "platform/linux/session/PosixToolRunner.h"
#include "tests/linux/PrivateBus.h"
#include "tests/linux/TextFiles.h"

namespace zv {
namespace {

using tests::eventually;
using tests::MockService;
using tests::PrivateBus;
using tests::TemporaryFolder;
namespace fs = std::filesystem;

/// An entry that writes its arguments into the file "log".
std::string entryText(std::string const& home, std::string const& more = {})
{
    return "[Desktop Entry]\nType=Application\nName=N\nExec=" + home + "/note started %u\n" + more;
}

/// Tests with applications of their own: run again in a process whose environment names
/// nothing but the test's folder.
struct LaunchingInside : testing::Test {
    void SetUp() override
    {
        if (!std::getenv("ZV_TEST_HOME"))
            GTEST_SKIP() << "runs within Launching.InAnEnvironmentOfItsOwn";
    }
    std::string home(std::string const& name) { return std::string(std::getenv("ZV_TEST_HOME")) + "/" + name; }
    std::string write(std::string const& name, std::string const& text)
    {
        fs::create_directories(fs::path(home(name)).parent_path());
        tests::writeText(home(name), text);
        return home(name);
    }
    std::string writeEntry(std::string const& name) { return write(name, entryText(std::getenv("ZV_TEST_HOME"))); }
    std::string logText()
    {
        std::string text;
        eventually([&] { return (text = tests::readText(home("log"))).ends_with('\n'); });
        fs::remove(home("log"));
        return text;
    }
    std::string open(std::string const& path)
    {
        auto const opened = openUrl(Url::fromPath(path), "", StartTrust({ std::getenv("ZV_TEST_HOME") }));
        return opened ? "" : opened.error().reason;
    }
    /// What the user would be asked about; nothing where nobody would be asked.
    static std::optional<UntrustedStart> question(std::string const& path, std::optional<UntrustedStart> const& agreed = std::nullopt)
    {
        constexpr uid_t nobody = 4'000'000'000;
        auto const opened = openUrl(Url::fromPath(path), "", StartTrust({}, { .system = nobody }), agreed);
        return opened ? std::nullopt : opened.error().untrusted;
    }
};

TEST_F(LaunchingInside, AnEntryIsStartedAndNeverShown)
{
    EXPECT_EQ(open(writeEntry("My App.desktop")), "");
    EXPECT_EQ(logText(), "started\n");
    EXPECT_NE(open(write("empty.desktop", "")), "");
    EXPECT_NE(open(write("missing.desktop", "[Desktop Entry]\nType=Application\nName=N\nExec=/nowhere/program\n")), "");
    EXPECT_NE(open(home("gone.desktop")), "");
    EXPECT_FALSE(fs::exists(home("log")));
}

TEST_F(LaunchingInside, AnApplicationHearsThatTheUserAskedForIt)
{
    auto const script = write("tell", "#!/bin/sh\necho \"$DESKTOP_STARTUP_ID $XDG_ACTIVATION_TOKEN\" > " + home("log") + "\n");
    fs::permissions(script, fs::perms::owner_all);
    write("tell.desktop", "[Desktop Entry]\nType=Application\nName=Tell\nStartupNotify=true\nExec=" + script + "\n");
    ::setenv("DESKTOP_STARTUP_ID", "of our own start", 1);
    EXPECT_EQ(open(home("tell.desktop")), "");
    EXPECT_EQ(logText(), " \n") << "without a desktop that hears of it";
    setLaunchTokens({ .startupId = [](auto const& name) { return "id of " + name; }, .activationToken = [] { return std::string("token"); } });
    EXPECT_EQ(open(home("tell.desktop")), "");
    EXPECT_EQ(logText(), "id of Tell token\n");
    setLaunchTokens({});
}

TEST_F(LaunchingInside, ALinkLeadsOnButNotForEver)
{
    auto const link = [](std::string const& target) { return "[Desktop Entry]\nType=Link\nName=L\nURL=" + target + "\n"; };
    EXPECT_EQ(open(write("link.desktop", link(Url::fromPath(writeEntry("target.desktop")).toString()))), "");
    EXPECT_EQ(logText(), "started\n");
    EXPECT_EQ(open(write("loop.desktop", link(home("loop.desktop")))), "the links lead nowhere");
}

TEST_F(LaunchingInside, AnApplicationFolderStartsItsProgram)
{
    write("Tool.AppDir/AppRun", "#!/bin/sh\nexec " + home("note") + " folder\n");
    fs::permissions(home("Tool.AppDir/AppRun"), fs::perms::owner_all);
    EXPECT_EQ(open(home("Tool.AppDir")), "");
    EXPECT_EQ(logText(), "folder\n");
    EXPECT_TRUE(launchApplication(Url::fromPath(home("Tool.AppDir")), ""));
    EXPECT_EQ(logText(), "folder\n");
}

TEST_F(LaunchingInside, AProgramHoldsNothingOfOursAndOutlivesOurTerminal)
{
    auto const program = write("who", "#!/bin/sh\necho $(readlink /proc/$$/fd/[0-2]) $(($(cut -d' ' -f6 /proc/$$/stat) == $$)) > " + home("log") + "\n");
    fs::permissions(program, fs::perms::owner_all);
    for (auto const& started : { program, write("who.desktop", "[Desktop Entry]\nType=Application\nName=N\nExec=" + program + "\n") }) {
        EXPECT_TRUE(launchApplication(Url::fromPath(started), ""));
        EXPECT_EQ(logText(), "/dev/null /dev/null /dev/null 1\n") << started;
    }
}

TEST_F(LaunchingInside, AProgramRunsOnceItIsExecutable)
{
    auto const program = write("tool", "#!/bin/sh\nexec " + home("note") + " file\n");
    EXPECT_EQ(launchApplication(Url::fromPath(program), "").error(), "no application that can be started");
    fs::permissions(program, fs::perms::owner_all);
    EXPECT_EQ(open(program), "");
    EXPECT_EQ(logText(), "file\n");
}

TEST_F(LaunchingInside, WhatNobodyInstalledStartsOnlyAsItWasAgreedTo)
{
    auto const url = [](std::string const& path) { return Url::fromPath(path); };
    auto const entry = writeEntry("invoice.pdf.desktop");
    auto const link = write("pictures.desktop", "[Desktop Entry]\nType=Link\nName=L\nURL=" + entry + "\n");
    UntrustedStart const linkStart { url(link), entry, true };
    UntrustedStart const start { url(entry), home("note started %u"), true };
    EXPECT_EQ(question(entry), start);
    EXPECT_EQ(question(link), linkStart);
    EXPECT_EQ(question(link, linkStart), start) << "what a link leads to is asked about anew";
    EXPECT_EQ(question(entry, UntrustedStart { url(entry), "something else", true }), start) << "it has changed since";
    EXPECT_FALSE(fs::exists(home("log")));
    EXPECT_EQ(question(entry, start), std::nullopt);
    EXPECT_EQ(logText(), "started\n");
    makeExecutable(entry);
    EXPECT_EQ(question(entry), std::nullopt);
    EXPECT_EQ(logText(), "started\n");

    write("Tool.AppDir/AppRun", "#!/bin/sh\n");
    fs::permissions(home("Tool.AppDir/AppRun"), fs::perms::owner_all);
    auto const image = write("Tool.AppImage", "");
    fs::copy_file("/bin/true", image, fs::copy_options::overwrite_existing);
    fs::permissions(image, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(question(home("Tool.AppDir")), std::nullopt) << "the bit of its program counts";
    UntrustedStart const imageStart { url(image), image, true };
    EXPECT_EQ(question(image), imageStart);
    EXPECT_EQ(question(image, imageStart), std::nullopt) << "lent its bit";
    EXPECT_EQ(question(image), imageStart) << "for once";
}

TEST_F(LaunchingInside, DocumentsFoldersAndSchemesGoToTheirHandlers)
{
    auto const document = write("a b.txt", "text");
    EXPECT_EQ(open(document), "");
    EXPECT_EQ(logText(), "started " + document + "\n");
    EXPECT_TRUE(openUrl(*Url::parse("x-zv://there?a=1&b=2"), "", StartTrust()));
    EXPECT_EQ(logText(), "started x-zv://there?a=1&b=2\n");
    EXPECT_FALSE(openUrl(*Url::parse("x-none://there"), "", StartTrust())) << "nobody handles it";
    EXPECT_NE(open(home("gone.txt")), "") << "gone between listing and choosing";

    EXPECT_TRUE(revealFile(Url::fromPath(document), "")) << "no file manager to ask: its folder opens";
    EXPECT_EQ(logText(), std::string("started ") + std::getenv("ZV_TEST_HOME") + "\n");
}

TEST_F(LaunchingInside, FilesHaveTheApplicationsOfTheirTypeAndATrash)
{
    auto const document = Url::fromPath(write("c d.txt", "text"));
    auto const found = applicationsFor(document);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].file.path(), home("applications/handler.desktop")) << "the default one first, and once";
    EXPECT_EQ(found[1].file.path(), home("applications/a-second.desktop"));
    EXPECT_TRUE(openFileWith(document, found[1].file, ""));
    EXPECT_EQ(logText(), "started " + document.path() + "\n");
    auto const copy = Url::fromPath(home("copy.txt")), moved = Url::fromPath(home("moved.txt")), link = Url::fromPath(home("link.txt"));
    EXPECT_TRUE(transferFile(document, copy, FileTransfer::copy));
    EXPECT_FALSE(transferFile(document, copy, FileTransfer::move)) << "nothing is replaced";
    EXPECT_TRUE(transferFile(copy, moved, FileTransfer::move));
    EXPECT_TRUE(transferFile(moved, link, FileTransfer::link));
    EXPECT_FALSE(fs::exists(copy.path()));
    EXPECT_EQ(tests::readText(link.path()), "text");
    EXPECT_TRUE(moveToTrash(document));
    EXPECT_FALSE(fs::exists(document.path()));
    EXPECT_TRUE(fs::exists(home("Trash/files/c d.txt")));
    EXPECT_FALSE(moveToTrash(document)) << "it is gone";
}

TEST_F(LaunchingInside, ASlowFileManagerOpensNoSecondWindow)
{
    PrivateBus const bus;
    MockService manager(bus, "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1");
    manager.method("ShowItems", "ass", "", "import time; time.sleep(5)");
    EXPECT_TRUE(revealFile(Url::fromPath(home("a.txt")), bus.address(), std::chrono::milliseconds(50)));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_FALSE(fs::exists(home("log"))) << tests::readText(home("log"));
}

/// Runs within Launching.OverTheBusOutlivesACommandThatEndsAtOnce.
TEST(LaunchingAtTheEnd, OverTheBus)
{
    auto const* const entry = std::getenv("ZV_TEST_ENTRY");
    if (!entry)
        GTEST_SKIP();
    ::setenv("DBUS_SESSION_BUS_ADDRESS", std::getenv("ZV_TEST_BUS"), 1);
    ::_exit(openUrl(Url::fromPath(entry), std::getenv("ZV_TEST_BUS"), StartTrust({ Url::fromPath(entry).parent().path() })) ? 0 : 1);
}

TEST(Launching, OverTheBusOutlivesACommandThatEndsAtOnce)
{
    TemporaryFolder const folder;
    PrivateBus const bus;
    MockService viewer(bus, "org.example.Viewer", "/org/example/Viewer", "org.freedesktop.Application");
    viewer.method("Activate", "a{sv}", "", "");
    auto const entry = folder.write("org.example.Viewer.desktop", "[Desktop Entry]\nType=Application\nName=V\nExec=sh\nDBusActivatable=true\n");
    PosixToolRunner runner({ { "HOME", folder.path() }, { "PATH", "/usr/bin" }, { "ZV_TEST_BUS", bus.address() }, { "ZV_TEST_ENTRY", entry } });
    auto const result = runner.run({ fs::read_symlink("/proc/self/exe").string(), { "--gtest_filter=LaunchingAtTheEnd.*" }, ToolOutput::capturedWithErrors });
    EXPECT_EQ(result.status, 0) << result.output;
    std::vector<std::string> calls;
    EXPECT_TRUE(eventually([&] { return !calls.empty() || !(calls = viewer.calls()).empty(); }));
}

TEST(Launching, InAnEnvironmentOfItsOwn)
{
    TemporaryFolder const folder;
    auto const note = folder.write("note", "#!/bin/sh\nh=${0%/*}\necho \"$@\" > \"$h/log.new\" && mv \"$h/log.new\" \"$h/log\"\n");
    fs::permissions(note, fs::perms::owner_all);
    // Written before the other process first looks: it notices later entries in its own time.
    folder.write("applications/handler.desktop", entryText(folder.path(), "MimeType=text/plain;inode/directory;x-scheme-handler/x-zv;\n"));
    folder.write("applications/a-second.desktop", entryText(folder.path(), "MimeType=text/plain;\n"));
    folder.write("applications/mimeapps.list",
        "[Default Applications]\ntext/plain=handler.desktop\ninode/directory=handler.desktop\nx-scheme-handler/x-zv=handler.desktop\n"
        "[Added Associations]\ntext/plain=a-second.desktop;\n");
    Environment environment { { "HOME", folder.path() }, { "XDG_DATA_HOME", folder.path() }, { "XDG_CONFIG_HOME", folder.path("none") },
        { "XDG_DATA_DIRS", folder.path("none") }, { "XDG_CONFIG_DIRS", folder.path("none") }, { "ZV_TEST_HOME", folder.path() } };
    for (auto const* kept : { "PATH", "ASAN_OPTIONS", "LSAN_OPTIONS" }) {
        if (auto const* value = std::getenv(kept))
            environment[kept] = value;
    }
    PosixToolRunner runner(environment);
    auto const result = runner.run({ fs::read_symlink("/proc/self/exe").string(), { "--gtest_filter=LaunchingInside.*" }, ToolOutput::capturedWithErrors });
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_NE(result.output.find("[  PASSED  ] 10 tests"), std::string::npos) << result.output;
}

TEST(Launching, RevealsInTheFileManager)
{
    PrivateBus const bus;
    MockService manager(bus, "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1");
    manager.method("ShowItems", "ass", "", "");
    EXPECT_TRUE(revealFile(Url::fromPath("/tmp/a \"b\".txt"), bus.address()));
    EXPECT_EQ(manager.calls(), std::vector<std::string> { "ShowItems ['file:///tmp/a%20%22b%22.txt'] ''" });
}

} // namespace
} // namespace zv
