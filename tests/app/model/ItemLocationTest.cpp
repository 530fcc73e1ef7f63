#include "app/model/ItemLocation.h"

#include "tests/fakes/FakeFiles.h"

#include <gtest/gtest.h>

namespace zv {

namespace {

using Kind = ItemLocation::Resolution::Kind;
using Source = ItemLocation::Resolution::Source;

struct ItemLocationTest : testing::Test {
    fakes::FakeFileSystem files;
    fakes::FakeBookmarks bookmarks { files };
    LocationServices services { files, bookmarks, "/home/ada" };

    static ItemLocation atPath(std::string path) { return { std::nullopt, std::move(path), std::nullopt }; }
    [[nodiscard]] std::optional<ItemLocation> older(PropertyListDictionary const& dictionary) const
    {
        return ItemLocation::fromOlderDictionary(dictionary, services);
    }
};

} // namespace

TEST_F(ItemLocationTest, ACurrentBookmarkIsUsedAsItIs)
{
    files.addFile("/a/Notes");
    auto location = ItemLocation::forURL(Url::fromPath("/a/Notes"), services);
    location.path = "/elsewhere";
    auto const resolution = location.resolve(services);
    EXPECT_EQ(resolution.kind, Kind::bookmark);
    EXPECT_EQ(resolution.url, Url::fromPath("/a/Notes"));
}

TEST_F(ItemLocationTest, AStaleBookmarkIsRewrittenThoughTheFileDidNotMove)
{
    files.addFile("/a/Notes");
    auto const location = ItemLocation::forURL(Url::fromPath("/a/Notes"), services);
    bookmarks.stale.insert("/a/Notes");
    auto const resolution = location.resolve(services);
    EXPECT_EQ(resolution.kind, Kind::needsRefresh);
    EXPECT_EQ(resolution.via, Source::storedPath);
    EXPECT_EQ(resolution.url, Url::fromPath("/a/Notes"));
}

TEST_F(ItemLocationTest, ABrokenBookmarkFallsBackToThePath)
{
    files.addFile("/a/Notes");
    auto location = atPath("/a/Notes");
    location.bookmark = fakes::bytesOf("garbage");
    auto const resolution = location.resolve(services);
    EXPECT_EQ(resolution.kind, Kind::needsRefresh);
    EXPECT_EQ(resolution.via, Source::storedPath);
}

TEST_F(ItemLocationTest, AMovedApplicationIsFoundInTheFirstStandardFolderThatHasIt)
{
    char const* const folders[] = { "/System/Library/CoreServices/Applications", "/System/Library/CoreServices", "/Applications/Utilities",
        "/System/Applications/Utilities", "/Applications", "/System/Applications" };
    auto const location = atPath("/old/place/X.app");
    EXPECT_EQ(location.resolve(services).kind, Kind::unresolved);
    for (std::string const folder : folders) { // from the last to the first in the order of search
        files.addPackage(folder + "/X.app");
        auto const resolution = location.resolve(services);
        EXPECT_EQ(resolution.kind, Kind::needsRefresh);
        EXPECT_EQ(resolution.via, Source::relocated);
        EXPECT_EQ(resolution.url, Url::fromPath(folder + "/X.app"));
    }
}

TEST_F(ItemLocationTest, AFileOnAServerThatIsAwayIsTakenForNoOther)
{
    files.addPackage("/Applications/X.app");
    auto location = atPath("/Volumes/S/X.app");
    location.bookmark = fakes::bytesOf("bookmark:/Volumes/S/X.app");
    EXPECT_EQ(location.resolve(services).url, Url::fromPath("/Applications/X.app"));
    bookmarks.unmounted = { "bookmark:/Volumes/S/X.app" };
    EXPECT_EQ(location.resolve(services).kind, Kind::onUnmountedServer);
    EXPECT_EQ(location.resolvedURL(services), std::nullopt);
}

TEST_F(ItemLocationTest, WhatNamesNoFileIsNotFound)
{
    files.addFolder("/System/Applications");
    EXPECT_EQ(ItemLocation().resolve(services).kind, Kind::unresolved);
    for (auto const* path : { "", "relative", "/gone/..", "/gone/." })
        EXPECT_EQ(atPath(path).resolve(services).kind, Kind::unresolved) << path;
    EXPECT_EQ(ItemLocation().resolvedURL(services), std::nullopt);
}

TEST_F(ItemLocationTest, RefreshRewritesAllThreeFields)
{
    files.addFolder("/a/Folder");
    auto location = atPath("/a/Folder/");
    auto const url = location.resolvedURL(services);
    ASSERT_TRUE(url);
    location.refresh(*url, services);
    EXPECT_EQ(location, (ItemLocation { fakes::bytesOf("bookmark:/a/Folder"), "/a/Folder", "Folder" })) << "without the slash at the end";
    location.refresh(Url::fromPath("/"), services);
    EXPECT_EQ(location.path, "/");
    location.refresh(Url::fromPath("/gone"), services);
    EXPECT_EQ(location.bookmark, fakes::bytesOf("bookmark:/")) << "the old one stays: it may still find the file some day";
}

TEST_F(ItemLocationTest, TheOlderFormIsResolvedAtOnce)
{
    files.addFile("/a/Notes");
    files.addFolder("/home/ada/Music");
    files.addFile("/home/adatilde");
    EXPECT_EQ(older({ { "Path", "/a/Notes" }, { "Title", "My notes" } }), (ItemLocation { fakes::bytesOf("bookmark:/a/Notes"), "/a/Notes", "Notes" }));
    EXPECT_EQ(older({ { "Path", "/gone" }, { "Title", "T" }, { "DisplayName", "D" } }), (ItemLocation { std::nullopt, "/gone", "D" }));
    EXPECT_EQ(older({ { "Path", "/gone" }, { "Title", "T" } }), (ItemLocation { std::nullopt, "/gone", "T" }));
    EXPECT_EQ(older({ { "Path", "~/Music" } })->path, "/home/ada/Music");
    EXPECT_EQ(older({ { "Path", "~tilde" } })->path, "~tilde");
    auto const later = older({ { "Path", "~/Later" } });
    EXPECT_EQ(later->path, "~/Later") << "as it was read";
    files.addFile("/home/ada/Later");
    EXPECT_EQ(later->resolvedURL(services), Url::fromPath("/home/ada/Later"));
    EXPECT_EQ(older({ { "Path", 7 } }), std::nullopt);
    EXPECT_EQ(older({ { "Title", "T" } }), std::nullopt);
}

TEST_F(ItemLocationTest, APathOfAnyBytesSurvivesTheKeyedForm)
{
    ItemLocation const locations[] = {
        {},
        { fakes::bytesOf("b"), "/plain", "plain" },
        { std::nullopt, "/bytes \xFF\xFE", "\xC3" },
        { std::nullopt, "/bell\x07", "tab\tand\nline" },
        { fakes::bytesOf(""), "", "" },
    };
    for (auto const& location : locations) {
        auto const read = ItemLocation::fromPropertyList(location.toPropertyList());
        ASSERT_TRUE(read);
        EXPECT_EQ(*read, location);
    }
    EXPECT_TRUE(ItemLocation().toPropertyList().empty()) << "only what is present is written";
    EXPECT_NE(ItemLocation().toPropertyList(), locations[4].toPropertyList());
}

TEST_F(ItemLocationTest, AValueOfTheWrongTypeIsNamed)
{
    EXPECT_EQ(ItemLocation::fromPropertyList(PropertyListDictionary { { "bookmark", "text" } }).error().key, "bookmark");
    EXPECT_EQ(ItemLocation::fromPropertyList(PropertyListDictionary { { "path", 1 } }).error().key, "path");
    EXPECT_EQ(ItemLocation::fromPropertyList(PropertyListDictionary { { "displayName", true } }).error().key, "displayName");
    EXPECT_FALSE(ItemLocation::fromPropertyList(PropertyListArray {}));
}

} // namespace zv
