#include "app/menu/DynamicMenuProvider.h"

#include "tests/fakes/FakeFolderReader.h"
#include "tests/fakes/FakeLists.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Titles = std::vector<std::string>;

struct DynamicMenuProviderTest : testing::Test {
    std::optional<Titles> titles(MenuItemKind kind)
    {
        std::optional<Titles> found;
        provider.entries(kind, std::nullopt, 3, [&](auto entries) {
            found = Titles();
            for (auto const& entry : entries)
                found->push_back(entry.title);
        });
        time.runTasks();
        return found;
    }

    fakes::FakeMetadataQueries recent;
    fakes::FakeRunningApplications applications;
    fakes::FakeVolumes volumes;
    fakes::FakeRecentServers servers;
    fakes::FakeNetworkInterfaces interfaces;
    fakes::FakeSettingsPanes panes;
    Lists seams { recent, applications, volumes, servers, interfaces, panes };
    fakes::FakeUserDefaults defaults;
    Preferences preferences { defaults };
    std::shared_ptr<fakes::FakeFolderReader> folders = std::make_shared<fakes::FakeFolderReader>();
    fakes::FakeTime time;
    FolderListings listings { folders, time };
    DynamicMenuProvider provider { { seams, preferences, listings, Url::fromPath("/items") } };
};

TEST_F(DynamicMenuProviderTest, GivesEachKindItsOwnList)
{
    applications.applications = { { "a", "Application", std::nullopt } };
    volumes.volumes = { { Url::fromPath("/"), "Volume", true } };
    servers.servers = { { Url::parse("ftp://server/").value() } };
    interfaces.addresses = { { "eth0", "", "10.0.0.1" } };
    panes.panes = { { "p", "Pane", Url::fromPath("/p"), Url::fromPath("/p"), "" } };
    EXPECT_EQ(titles(MenuItemKind::runningApplications), (Titles { "Application" }));
    EXPECT_EQ(titles(MenuItemKind::mountedVolumes), (Titles { "Volume" }));
    EXPECT_EQ(titles(MenuItemKind::recentServers), (Titles { "server" }));
    EXPECT_EQ(titles(MenuItemKind::ipAddress), (Titles { "10.0.0.1 — eth0" }));
    EXPECT_EQ(titles(MenuItemKind::systemPrefs), (Titles { "Pane" }));
    EXPECT_EQ(titles(MenuItemKind::sleep), (Titles {})) << "a kind without a list is answered too";
}

TEST_F(DynamicMenuProviderTest, KeepsServersWithinTheLimitOfRecentItemsAsItIsNow)
{
    servers.servers = { { Url::parse("ftp://a/").value(), 3 }, { Url::parse("ftp://b/").value(), 2 }, { Url::parse("ftp://c/").value(), 1 } };
    preferences.setRecentItemsLimit(2);
    EXPECT_EQ(titles(MenuItemKind::recentServers), (Titles { "a", "b" }));
    preferences.setRecentItemsLimit(1);
    EXPECT_EQ(titles(MenuItemKind::recentServers), (Titles { "a" }));
}

TEST_F(DynamicMenuProviderTest, ListsTheItemsFolderAsAFolder)
{
    EXPECT_EQ(titles(MenuItemKind::zantheVellItems), (Titles {})) << "nobody has made it yet";
    folders->failures["/items"] = FolderReadFailure::notPermitted;
    EXPECT_EQ(titles(MenuItemKind::zantheVellItems), (Titles { "items" })) << "the folder itself, with the reason";
    folders->failures.clear();

    folders->folders["/items"] = { { "02)b.txt" }, { "01)z.txt" }, fakes::FakeFolderReader::folder("sub"), { ".hidden" } };
    EXPECT_EQ(titles(MenuItemKind::zantheVellItems), (Titles { "sub", "z.txt", "b.txt" }));
    preferences.setSortFoldersFirst(false);
    EXPECT_EQ(titles(MenuItemKind::zantheVellItems), (Titles { "z.txt", "b.txt", "sub" }));
    preferences.setShowHiddenFiles(true);
    EXPECT_EQ(titles(MenuItemKind::zantheVellItems)->size(), 4u);
}

TEST_F(DynamicMenuProviderTest, ReadsARemoteItemsFolderOffTheMainThread)
{
    folders->remote.insert("/items");
    folders->folders["/items"] = { { "a" } };
    int answers = 0;
    for (int opening = 0; opening < 2; ++opening)
        provider.entries(MenuItemKind::zantheVellItems, std::nullopt, 1, [&](auto) { ++answers; });
    EXPECT_TRUE(folders->readings.empty());
    EXPECT_EQ(answers, 0);
    time.runTasks();
    EXPECT_EQ(answers, 2);
    EXPECT_EQ(folders->readings["/items"], 1) << "once for all who wait";
}

} // namespace
} // namespace zv
