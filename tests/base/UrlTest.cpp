#include "base/Url.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(Url, NamesEveryPathThereIs)
{
    struct Row {
        std::string path, text;
    };
    Row const rows[] = {
        { "/", "file:///" },
        { "/a b/c", "file:///a%20b/c" },
        { "/100% #1?", "file:///100%25%20%231%3F" },
        { "/Zürich", "file:///Z%C3%BCrich" },
        { "/bad\xFF\nname", "file:///bad%FF%0Aname" },
        { "/plain-._~!$&'()*+,:=@", "file:///plain-._~!$&'()*+,:=@" },
    };
    for (auto const& row : rows) {
        auto const url = Url::fromPath(row.path);
        EXPECT_EQ(url.toString(), row.text);
        EXPECT_EQ(url.path(), row.path);
        EXPECT_EQ(Url::parse(row.text), url);
    }
    EXPECT_EQ(Url::fromPath("/a//"), Url::fromPath("/a"));
    EXPECT_EQ(Url::parse(std::string_view("file:///a%20").substr(0, 11))->path(), "/a%2") << "what follows is not looked at";
    EXPECT_EQ(Url::parse("file://localhost/a/"), Url::fromPath("/a"));
    EXPECT_EQ(Url::parse("file://"), Url::fromPath("/"));
    EXPECT_FALSE(Url::parse("file:///a%00b")) << "the system would read another path";
    auto const elsewhere = Url::parse("file://otherhost/a");
    EXPECT_FALSE(elsewhere->isFile());
    EXPECT_EQ(elsewhere->toString(), "file://otherhost/a");
}

TEST(Url, AppendingIsThePathsOwnAppending)
{
    struct Row {
        std::string folder, component, path;
    };
    Row const rows[] = {
        { "/", "a", "/a" },
        { "/a b", "c\xFF%", "/a b/c\xFF%" },
        { "/a", "b/c", "/a/b/c" },
        { "/a", "b//", "/a/b" },
        { "/a", "", "/a" },
        { "/a", "/", "/a" },
        { "/", "", "/" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(Url::fromPath(row.folder).appending(row.component), Url::fromPath(row.path)) << row.path;
}

} // namespace
} // namespace zv
