#include "platform/linux/files/SymlinkAliasFiles.h"

#include "app/actions/ItemsFolder.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <set>
#include <thread>

namespace zv {
namespace {

using tests::TemporaryFolder;
namespace fs = std::filesystem;

/// The real disk, as far as adding uses it.
class RealFiles : public fakes::FakeFileSystem {
public:
    bool isTaken(Url const& url) const override
    {
        struct stat information { };
        return ::lstat(url.path().c_str(), &information) == 0;
    }
    Result<void> createDirectory(Url const& url) override
    {
        std::error_code error;
        fs::create_directories(url.path(), error);
        if (error)
            return Failure { error.message() };
        return {};
    }
};

struct AliasTest : testing::Test {
    ItemsFolder items() { return { Url::fromPath(folder.path("Items")), files, aliases }; }
    std::string reason(std::string const& target, std::string const& place)
    {
        auto const created = aliases.createAlias(Url::fromPath(target), Url::fromPath(place));
        return created ? "" : (created.error().isNameTaken ? "taken: " : "") + created.error().reason;
    }
    TemporaryFolder folder;
    RealFiles files;
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
}

TEST_F(AliasTest, AFolderThatIsAFileIsTold)
{
    folder.write("Items", "x");
    auto const outcome = items().add({ Url::fromPath(folder.path()) });
    EXPECT_TRUE(outcome.folderError.has_value());
    EXPECT_TRUE(outcome.added.empty());
}

/// Runs `work` in a process of its own, which may give up root's rights.
template <class Work> int inChild(Work work)
{
    auto const child = ::fork();
    if (child == 0)
        ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(AliasTest, AReadOnlyFolderIsAProblemOfEachFile)
{
    folder.makeFolder("Items");
    ::chmod(folder.path().c_str(), 0755);
    ::chmod(folder.path("Items").c_str(), 0555);
    auto const denied = inChild([&] {
        if (::geteuid() == 0 && ::setuid(65534) != 0)
            return 77;
        auto const outcome = items().add({ Url::fromPath(folder.path()), Url::fromPath(folder.path()) });
        bool const isTold = outcome.problems.size() == 2 && outcome.problems[0].reason == "Permission denied";
        return isTold && outcome.added.empty() ? 0 : 1;
    });
    EXPECT_EQ(denied, 0);
}

TEST_F(AliasTest, ManyAddingAtOnceNeverOverwriteEachOther)
{
    constexpr int writers = 4;
    constexpr int each = 40;
    std::vector<std::thread> threads;
    for (int i = 0; i < writers; ++i) {
        auto const target = folder.write("from " + std::to_string(i) + "/Note.txt", "x");
        threads.emplace_back([this, target] {
            auto const outcome = items().add(std::vector<Url>(each, Url::fromPath(target)));
            EXPECT_EQ(outcome.added.size(), static_cast<std::size_t>(each));
        });
    }
    for (auto& thread : threads)
        thread.join();
    std::map<std::string, int> targets;
    for (auto const& entry : fs::directory_iterator(folder.path("Items")))
        ++targets[fs::read_symlink(entry.path()).string()];
    EXPECT_EQ(targets.size(), static_cast<std::size_t>(writers));
    for (auto const& [target, count] : targets)
        EXPECT_EQ(count, each) << target;
}

} // namespace
} // namespace zv
