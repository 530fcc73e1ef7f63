#include "platform/linux/files/BundleResources.h"

#include "platform/linux/posix/ProgramPlaces.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using tests::TemporaryFolder;

std::string textOf(std::optional<std::vector<std::byte>> const& bytes)
{
    return bytes ? std::string(reinterpret_cast<char const*>(bytes->data()), bytes->size()) : "nothing";
}

TEST(BundleResources, TakesAResourceFromTheFirstFolderThatHasIt)
{
    TemporaryFolder const folder;
    folder.write("share/Library.plist", "installed");
    folder.write("share/DockMenu.plist", "installed");
    folder.write("build/Library.plist", "built");
    BundleResources const resources({ folder.path("absent"), folder.path("build"), folder.path("share") });
    EXPECT_EQ(textOf(resources.load("Library", "plist")), "built");
    EXPECT_EQ(textOf(resources.load("DockMenu", "plist")), "installed");
    EXPECT_EQ(textOf(resources.load("Begging", "rtf")), "nothing");
}

TEST(BundleResources, AFileMadeForThisSystemComesFirstWithinAFolder)
{
    TemporaryFolder const folder;
    folder.write("given/Library.plist", "given");
    folder.write("share/Library.plist", "everywhere");
    folder.write("share/Library (Linux).plist", "here");
    EXPECT_EQ(textOf(BundleResources({ folder.path("share") }).load("Library", "plist")), "here");
    EXPECT_EQ(textOf(BundleResources({ folder.path("given"), folder.path("share") }).load("Library", "plist")), "given");
}

TEST(BundleResources, FindsWhatShipsWithTheProgramBesideIt)
{
    auto const folders = ProgramPlaces::of({}).resourceFolders();
    ASSERT_EQ(folders.size(), 2u);
    EXPECT_TRUE(std::filesystem::is_symlink(folders[0])) << folders[0];
    EXPECT_TRUE(folders[1].ends_with("/share/zanthe-vell"));
    EXPECT_EQ(ProgramPlaces::of({ { "ZANTHE_VELL_RESOURCES", "/tried" } }).resourceFolders(), (std::vector<std::string> { "/tried", folders[0], folders[1] }));
}

TEST(BundleResources, TellsOfTheProgramAndTakesTheRestFromItsInformationFile)
{
    TemporaryFolder const folder;
    BundleResources const bare({ folder.path() });
    EXPECT_EQ(*bare.information().find("CFBundleIdentifier"), PropertyList("org.zanthevell.ZantheVell"));
    EXPECT_EQ(*bare.information().find("CFBundleShortVersionString"), PropertyList(ZV_VERSION));
    EXPECT_FALSE(bare.information().contains("SUFeedURL"));
    folder.write("Info.plist", "<plist><dict><key>SUFeedURL</key><string>https://x/y</string><key>CFBundleName</key><string>Other</string></dict></plist>");
    BundleResources const informed({ folder.path() });
    EXPECT_EQ(*informed.information().find("SUFeedURL"), PropertyList("https://x/y"));
    EXPECT_EQ(*informed.information().find("CFBundleName"), PropertyList("Other"));
    EXPECT_TRUE(informed.information().contains("CFBundleIdentifier"));
    folder.write("Info.plist", "garbage");
    EXPECT_EQ(BundleResources({ folder.path() }).information(), bare.information());
}

TEST(XdgDirectories, FollowTheConventions)
{
    auto const standard = XdgDirectories::of({ { "HOME", "/home/u/" } });
    EXPECT_EQ(standard.home, "/home/u");
    EXPECT_EQ(standard.config, "/home/u/.config");
    EXPECT_EQ(standard.data, "/home/u/.local/share");
    EXPECT_EQ(standard.runtime, "");
    EXPECT_EQ(standard.dataDirs, (std::vector<std::string> { "/usr/local/share", "/usr/share" }));

    auto const set = XdgDirectories::of({ { "HOME", "/home/u" }, { "XDG_CONFIG_HOME", "/conf/" }, { "XDG_DATA_HOME", "relative" }, { "XDG_CACHE_HOME", "" },
        { "XDG_RUNTIME_DIR", "/run/user/1" }, { "XDG_DATA_DIRS", "/a:relative::/b/:/b//c:/b" } });
    EXPECT_EQ(set.config, "/conf");
    EXPECT_EQ(set.data, "/home/u/.local/share") << "a relative path counts as unset";
    EXPECT_EQ(set.cache, "/home/u/.cache") << "an empty one, too";
    EXPECT_EQ(set.runtime, "/run/user/1");
    EXPECT_EQ(set.dataDirs, (std::vector<std::string> { "/a", "/b", "/b/c" })) << "equal places are equal texts";
    EXPECT_EQ(set.applicationFolders().back(), "/b/c/applications");
    EXPECT_TRUE(XdgDirectories::of({ { "HOME", "relative" } }).home.starts_with('/')) << "the account's home";
}

} // namespace
} // namespace zv
