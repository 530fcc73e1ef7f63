#include "platform/macos/lists/MetadataQuery.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(MetadataQuery, AsksForEachScopeInTheIndexsLanguage)
{
    struct Row {
        RecentItemsScope scope;
        std::string query;
    };
    Row const rows[] = {
        { RecentItemsScope::all, "kMDItemLastUsedDate >= $time.now(-2592000)" },
        { RecentItemsScope::applications, "kMDItemLastUsedDate >= $time.now(-2592000) && kMDItemContentType == 'com.apple.application-bundle'" },
        { RecentItemsScope::folders, "kMDItemLastUsedDate >= $time.now(-2592000) && kMDItemContentType == 'public.folder'" },
        { RecentItemsScope::documents,
            "kMDItemLastUsedDate >= $time.now(-2592000) && kMDItemContentType != 'public.folder' && kMDItemContentType != "
            "'com.apple.application-bundle'" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(metadataQueryString({ row.scope, std::chrono::days(30), 5 }), row.query);
}

TEST(MetadataQuery, TakesTheFirstResultsAndDoesNotReplaceThoseWithoutAPath)
{
    std::vector<std::optional<std::string>> const results { "/a", std::nullopt, "/c/", "/d" };
    struct Row {
        std::size_t limit;
        std::string paths;
        std::size_t read;
    };
    Row const rows[] = { { 0, "", 0 }, { 3, "/a /c/ ", 3 }, { 30, "/a /c/ /d ", 4 } };
    for (auto const& row : rows) {
        std::string paths;
        std::size_t read = 0;
        for (auto const& file : firstFiles(results.size(), row.limit, [&](auto index) { return ++read, results.at(index); })) {
            paths += file.path + " ";
            EXPECT_EQ(file.isDirectory, file.path == "/c/");
        }
        EXPECT_EQ(paths, row.paths);
        EXPECT_EQ(read, row.read);
    }
}

} // namespace
} // namespace zv
