#include "platform/linux/install/AutostartLoginService.h"
#include "platform/linux/install/LinuxInstallation.h"
#include "platform/linux/text/RtfReader.h"
#include "tests/linux/TemporaryFolder.h"
#include "tests/linux/TextFiles.h"

namespace zv {
namespace {

using tests::readText;
using tests::TemporaryFolder;
namespace fs = std::filesystem;

TEST(AutostartLoginService, RespectsWhatTheDesktopSwitchedOff)
{
    struct Row {
        std::string entry;
        LoginService::Status status;
    };
    Row const rows[] = {
        { "[Desktop Entry]\nExec=/bin/sh\n", LoginService::Status::enabled },
        { "[Desktop Entry]\nExec=env A=b nice /usr/bin/../bin/sh\nTryExec=sh\nOnlyShowIn=MATE;\n", LoginService::Status::enabled },
        { "[Desktop Entry]\nExec=true\n", LoginService::Status::notRegistered },
        { "[Desktop Entry]\nExec=/gone/sh\n", LoginService::Status::notRegistered },
        { "[Desktop Entry]\nExec=sh\nTryExec=/gone\n", LoginService::Status::notRegistered },
        { "[Desktop Entry]\nExec=sh\nOnlyShowIn=KDE;\n", LoginService::Status::notRegistered },
        { "[Desktop Entry]\nExec=x\nHidden=true\n", LoginService::Status::requiresApproval },
        { "[Desktop Entry]\nExec=x\nX-GNOME-Autostart-enabled=false\n", LoginService::Status::requiresApproval },
        { "[Desktop Entry]\nExec=sh\nHidden=false\nX-GNOME-Autostart-enabled=true\n", LoginService::Status::enabled },
        { "no entry at all", LoginService::Status::notRegistered },
    };
    for (auto const& row : rows) {
        TemporaryFolder folder;
        auto const entry = folder.write("autostart/org.zanthevell.ZantheVell.desktop", row.entry);
        AutostartLoginService service({ folder.path(), "/bin/sh", { "MATE" }, {}, {} });
        EXPECT_EQ(service.status(), row.status) << row.entry;
        service.mend();
        bool const isLost = row.entry.find("/gone") != std::string::npos;
        EXPECT_EQ(service.status(), isLost ? LoginService::Status::enabled : row.status) << "only what cannot start is mended";
        EXPECT_TRUE(service.registerService());
        if (row.status == LoginService::Status::requiresApproval)
            EXPECT_EQ(readText(entry), row.entry) << "the user's choice stands";
        else
            EXPECT_EQ(service.status(), LoginService::Status::enabled);
        EXPECT_TRUE(service.unregisterService());
        EXPECT_FALSE(fs::exists(entry));
    }
}

TEST(AutostartLoginService, StartsAProgramWhateverItsPathHolds)
{
    TemporaryFolder folder;
    AutostartLoginService service({ folder.path(), "/opt/a b/100% \"$x\" \\y", {}, {}, {} });
    ASSERT_TRUE(service.registerService());
    EXPECT_NE(readText(folder.path("autostart/org.zanthevell.ZantheVell.desktop")).find(R"(Exec="/opt/a b/100%% \\"\\$x\\" \\\\y")"), std::string::npos);
}

TEST(AutostartLoginService, SaysWhyItCannotChange)
{
    TemporaryFolder folder;
    folder.write("autostart", "a file where the folder should be");
    AutostartLoginService service({ folder.path(), "/x", {}, {}, {} });
    auto const registered = service.registerService();
    ASSERT_FALSE(registered);
    EXPECT_NE(registered.error().code, 0);
    EXPECT_EQ(registered.error().description, std::generic_category().message(registered.error().code));
}

struct InstallationTest : testing::Test {
    InstallationTest()
    {
        options.systemFolder = folder.path("system");
        options.userFolder = folder.path("user/bin");
        options.userApplications = folder.path("user/applications");
        options.systemApplications = folder.path("system-applications");
        options.temporaryFolder = "/temporary";
        options.mountInfo = folder.write("mountinfo",
            "1 0 8:1 / / rw,relatime - ext4 /dev/sda1 rw\n"
            "2 1 7:0 / /media/My\\040Image ro,nosuid - iso9660 /dev/loop0 ro\n"
            "3 1 8:2 / /media/stick rw - vfat /dev/sdb1 rw\n"
            "4 1 8:3 / /media/stick/locked ro - ext4 /dev/sdc1 rw\n"
            "broken line\n");
    }
    TemporaryFolder folder;
    LinuxInstallation::Options options;
};

TEST_F(InstallationTest, TellsThePlacesThatWillNotStay)
{
    struct Row {
        std::string path;
        RelocationSource source;
    };
    Row const rows[] = {
        { "/home/me/zanthe-vell", RelocationSource::none },
        { "/media/My Image/zanthe-vell", RelocationSource::diskImage },
        { "/media/stick/zanthe-vell", RelocationSource::none },
        { "/media/stick/locked/zanthe-vell", RelocationSource::temporaryPlace },
        { "/temporary/download/zanthe-vell", RelocationSource::temporaryPlace },
        { "/temporary-not/zanthe-vell", RelocationSource::none },
        { "/usr/bin/zanthe-vell", RelocationSource::none },
    };
    for (auto const& row : rows)
        EXPECT_EQ(LinuxInstallation(options).source(Url::fromPath(row.path)), row.source) << row.path;

    options.isMountedAppImage = true;
    LinuxInstallation const fromAppImage(options);
    EXPECT_EQ(fromAppImage.source(Url::fromPath("/home/me/Zanthe_Vell.AppImage")), RelocationSource::diskImage);
    EXPECT_EQ(fromAppImage.source(Url::fromPath(options.userFolder + "/Zanthe_Vell.AppImage")), RelocationSource::none);
}

TEST_F(InstallationTest, FallsBackToTheUsersOwnFolder)
{
    LinuxInstallation installation(options);
    EXPECT_EQ(installation.applicationsFolder()->path(), options.userFolder);
    EXPECT_TRUE(fs::is_directory(options.userFolder));
    fs::create_directory(options.systemFolder);
    EXPECT_EQ(installation.applicationsFolder()->path(), options.systemFolder);
}

TEST_F(InstallationTest, PutsAFolderInThePlaceOfAnOlderOne)
{
    LinuxInstallation installation(options);
    folder.write("new.AppDir/AppRun", "new");
    folder.write("user/bin/ZV.AppDir/AppRun", "old");
    folder.write("user/bin/ZV.AppDir/only-in-the-old", "");
    auto const destination = *installation.applicationsFolder();
    auto const temporary = installation.makeReplacementFolder(destination);
    ASSERT_TRUE(temporary.ok());
    auto const copy = temporary->appending("ZV.AppDir");
    auto const target = destination.appending("ZV.AppDir");
    ASSERT_TRUE(installation.copy(Url::fromPath(folder.path("new.AppDir")), copy));
    ASSERT_TRUE(installation.put(copy, target));
    installation.removeFolder(*temporary);
    ASSERT_TRUE(installation.announce(target));

    EXPECT_EQ(readText(target.path() + "/AppRun"), "new");
    EXPECT_FALSE(fs::exists(target.path() + "/only-in-the-old"));
    EXPECT_EQ(std::distance(fs::directory_iterator(destination.path()), {}), 1) << "nothing temporary stays";
    EXPECT_NE(readText(options.userApplications + "/org.zanthevell.ZantheVell.desktop").find("Exec=\"" + target.path() + "/AppRun\""), std::string::npos);
    EXPECT_TRUE(fs::exists(folder.path("new.AppDir/AppRun"))) << "the copy that was opened is left where it is";
}

TEST_F(InstallationTest, WritesAnEntryThatStartsAProgramInAFolderOfAnyName)
{
    auto const program = folder.path("my $50% bin/zanthe-vell");
    ASSERT_TRUE(LinuxInstallation(options).announce(Url::fromPath(program)));
    EXPECT_NE(readText(options.userApplications + "/org.zanthevell.ZantheVell.desktop").find("/my \\\\$50%% bin/zanthe-vell\"\n"), std::string::npos);
}

TEST_F(InstallationTest, TakesTheResourcesOfASingleFileAlong)
{
    options.resources = folder.path("unpacked/share");
    folder.write("unpacked/share/Notes.rtf", "new");
    folder.write("user/share/zanthe-vell/Notes.rtf", "old");
    folder.write("user/share/zanthe-vell/the user's", "kept");
    folder.write("user/bin/zanthe-vell", "program");
    ASSERT_TRUE(LinuxInstallation(options).announce(Url::fromPath(folder.path("user/bin/zanthe-vell"))));
    EXPECT_EQ(readText(folder.path("user/share/zanthe-vell/Notes.rtf")), "new");
    EXPECT_EQ(readText(folder.path("user/share/zanthe-vell/the user's")), "kept");
}

std::optional<RtfDocument> rtf(std::string const& text) { return readRtf(std::as_bytes(std::span(text))); }

TEST(RtfReader, ReadsWhatNotesAreMadeOf)
{
    auto const document = rtf("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red9\\green8\\blue7;}{\\*\\generator X;}\\pard\\qc\\sa120\\fs36\\b Hi\\b0  "
                              "\\i there\\i0\\par\\pard\\li360\\cf1\\u8230?\\'e9\\u-10179 ?\\u-8704 ?{\\field{\\*\\fldinst{HYPERLINK "
                              "\"https://a.b\"}}{\\fldrslt link}}\\{x\\}}");
    ASSERT_TRUE(document);
    ASSERT_EQ(document->paragraphs.size(), 2U);
    auto const& first = document->paragraphs[0];
    EXPECT_EQ(first.alignment, RtfDocument::Paragraph::Alignment::center);
    EXPECT_EQ(first.spaceAfter, 6);
    ASSERT_EQ(first.runs.size(), 3U);
    EXPECT_EQ(first.runs[0].text, "Hi");
    EXPECT_TRUE(first.runs[0].bold);
    EXPECT_EQ(first.runs[0].size, 18);
    EXPECT_TRUE(first.runs[2].italic);

    auto const& second = document->paragraphs[1];
    EXPECT_EQ(second.alignment, RtfDocument::Paragraph::Alignment::left);
    EXPECT_EQ(second.leftIndent, 18);
    ASSERT_EQ(second.runs.size(), 3U);
    EXPECT_EQ(second.runs[0].text, "…é😀");
    EXPECT_EQ(second.runs[0].color->green, 8);
    EXPECT_EQ(second.runs[1].text, "link");
    EXPECT_EQ(second.runs[1].link, "https://a.b");
    EXPECT_EQ(second.runs[2].text, "{x}");
}

TEST(RtfReader, SurvivesDamage)
{
    EXPECT_FALSE(rtf("plain text"));
    EXPECT_FALSE(rtf(""));
    std::string const deep = "{\\rtf1 " + std::string(100'000, '{') + "x";
    for (auto const& text :
        { std::string("{\\rtf1 a}}}} b"), std::string("{\\rtf1 \\"), std::string("{\\rtf1 \\'z"), std::string("{\\rtf1 \\u99999999999 ?"), deep })
        EXPECT_TRUE(rtf(text));
}

} // namespace
} // namespace zv
