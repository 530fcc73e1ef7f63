#include "app/menu/MenuIcon.h"
#include "app/menu/DynamicMenuProvider.h"

#include "tests/fakes/FakeLists.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

struct MenuIconTest : testing::Test {
    static std::string nameOf(ImageRef const& image) { return image ? image->name() : "none"; }

    fakes::FakeIconSource source;
    DynamicMenuProvider noLists;
    bool showsCommands = true;
    MenuIcon icons { source, noLists, Url::fromPath("/home/me/Zanthe Vell Items"), [this] { return showsCommands; } };
};

TEST_F(MenuIconTest, FallsBackWhereAPictureIsMissing)
{
    source.missing = { "file:/home/me/Zanthe Vell Items", "softwareUpdate", "appStore" };
    EXPECT_EQ(nameOf(icons.iconForKind(MenuItemKind::revealZantheVellItems)), "folder");
    EXPECT_EQ(nameOf(icons.iconForKind(MenuItemKind::softwareUpdate)), "systemSettings");
    EXPECT_EQ(nameOf(icons.iconForKind(MenuItemKind::appStore)), "none");
}

TEST_F(MenuIconTest, LeavesOutThePicturesOfCommandsUntilTheyAreAskedFor)
{
    for (bool const shows : { false, true }) {
        showsCommands = shows;
        EXPECT_EQ(nameOf(icons.iconForKind(MenuItemKind::sleep)), shows ? "sleep" : "none");
        EXPECT_EQ(nameOf(icons.systemIcon(SystemIcon::volumes)), shows ? "volumes" : "none");
        EXPECT_EQ(nameOf(icons.iconForKind(MenuItemKind::aboutThisMac)), "computer");
    }
}

TEST_F(MenuIconTest, FetchesAPictureOnceUntilItsCacheIsEmptied)
{
    auto const file = Url::fromPath("/a");
    auto const first = icons.iconForFile(file);
    EXPECT_EQ(icons.iconForFile(file), first);
    (void)icons.iconForFile(Url::parse("smb://nas/Public").value());
    (void)icons.networkIcon();
    EXPECT_EQ(source.asked["file:/a"], 1);
    EXPECT_EQ(source.asked["network"], 1);

    icons.emptyCache();
    EXPECT_NE(icons.iconForFile(file), first);
    EXPECT_EQ(source.asked["file:/a"], 2);
}

TEST_F(MenuIconTest, ShowsTheNetworkForWhatLiesOnAServer) { EXPECT_EQ(nameOf(icons.iconForFile(Url::parse("smb://nas/Public").value())), "network"); }

} // namespace
} // namespace zv
