#include "platform/linux/files/SymlinkAliasFiles.h"

#include "tests/linux/ChildProcess.h"
#include "tests/linux/TemporaryFolder.h"

namespace zv {
namespace {

using tests::TemporaryFolder;
namespace fs = std::filesystem;

struct AliasTest : testing::Test {
    std::string reason(std::string const& target, std::string const& place)
    {
        auto const created = aliases.createAlias(Url::fromPath(target), Url::fromPath(place));
        return created ? "" : (created.error().isNameTaken ? "taken: " : "") + created.error().reason;
    }
    TemporaryFolder folder;
    SymlinkAliasFiles aliases;
};

TEST_F(AliasTest, LinksToTheFileByItsFullPath)
{
    auto const target = folder.write("odd \"na\nme\"\xff.txt", "x");
    EXPECT_EQ(reason(target, folder.path("alias")), "");
    EXPECT_EQ(fs::read_symlink(folder.path("alias")).string(), target);
}

TEST_F(AliasTest, NeverReplacesAndSaysWhatIsWrong)
{
    auto const target = folder.write("file", "x");
    folder.write("taken", "theirs");
    folder.link("broken", "/nowhere");
    folder.makeFolder("folder");
    struct Row {
        std::string target, place, reason;
    };
    Row const rows[] = {
        { target, folder.path("taken"), "taken: File exists" },
        { target, folder.path("broken"), "taken: File exists" },
        { target, folder.path("folder"), "taken: File exists" },
        { folder.path("gone"), folder.path("new"), "No such file or directory" },
        { target, folder.path("file/new"), "Not a directory" },
        { target, folder.path("none/new"), "No such file or directory" },
        { target, folder.path(std::string(300, 'x')), "File name too long" },
        { folder.path("broken"), folder.path("ofBroken"), "" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.place);
        EXPECT_EQ(reason(row.target, row.place), row.reason);
    }
    EXPECT_TRUE(fs::is_regular_file(folder.path("taken")));
    fs::permissions(folder.path(), fs::perms(0755));
    fs::permissions(folder.path("folder"), fs::perms(0555));
    tests::WithoutRoot const ordinary;
    EXPECT_EQ(reason(target, folder.path("folder/new")), "Permission denied");
}

} // namespace
} // namespace zv
