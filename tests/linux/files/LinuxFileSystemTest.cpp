#include "platform/linux/files/LinuxFileSystem.h"

#include "platform/linux/posix/WholeFiles.h"
#include "tests/linux/ChildProcess.h"
#include "tests/linux/TemporaryFolder.h"
#include "tests/linux/TextFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <span>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr uid_t nobody = 4'000'000'000;

/// What reaches the disk, in order; null while no test asks.
std::vector<std::string>* toDisk = nullptr;

} // namespace

// In place of the C library's own: what a power cut would leave depends on these calls alone.
extern "C" int fsync(int descriptor)
{
    struct stat status { };
    if (toDisk && ::fstat(descriptor, &status) == 0)
        toDisk->emplace_back(S_ISDIR(status.st_mode) ? "sync folder" : "sync file");
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

extern "C" int rename(char const* from, char const* to) noexcept
{
    if (toDisk)
        toDisk->emplace_back("rename");
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

namespace zv {
namespace {

using tests::readText;
using tests::TemporaryFolder;
using tests::writeText;

std::vector<std::byte> bytesOf(std::string_view text)
{
    auto const bytes = std::as_bytes(std::span(text));
    return { bytes.begin(), bytes.end() };
}

class LinuxFileSystemTest : public testing::Test {
protected:
    [[nodiscard]] Url url(std::string_view name) const { return Url::fromPath(folder.path(name)); }

    TemporaryFolder folder;
    LinuxFileSystem files;
};

TEST_F(LinuxFileSystemTest, TellsWhatAPathIs)
{
    std::filesystem::create_directories(folder.path("Folder"));
    std::filesystem::create_directories(folder.path("Thing.app"));
    std::filesystem::create_directories(folder.path("Thing.AppDir"));
    writeText(folder.path("file.txt"), "x");
    writeText(folder.path("tool.desktop"), "[Desktop Entry]");
    writeText(folder.path("na\xEFve\n"), "x");
    std::filesystem::create_symlink("Folder", folder.path("to folder"));
    std::filesystem::create_symlink("Thing.app", folder.path("to package"));
    std::filesystem::create_symlink("nowhere", folder.path("broken"));
    std::filesystem::create_symlink("loop", folder.path("loop"));
    struct Row {
        std::string name;
        bool exists;
        bool isTaken;
        bool isDirectory;
        bool isPackage;
    };
    Row const rows[] = {
        { "Folder", true, true, true, false },
        { "Thing.app", true, true, true, true },
        { "Thing.AppDir", true, true, true, true },
        { "file.txt", true, true, false, false },
        { "tool.desktop", true, true, false, true },
        { "na\xEFve\n", true, true, false, false },
        { "to folder", true, true, true, false },
        { "to package", true, true, true, true },
        { "broken", false, true, false, false },
        { "loop", false, true, false, false },
        { "absent", false, false, false, false },
        { "file.txt/below", false, false, false, false },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(files.exists(url(row.name)), row.exists);
        EXPECT_EQ(files.isTaken(url(row.name)), row.isTaken);
        auto const traits = files.traits(url(row.name));
        ASSERT_EQ(traits.has_value(), row.isTaken);
        EXPECT_EQ(traits && traits->isDirectory, row.isDirectory);
        EXPECT_EQ(traits && traits->isPackage, row.isPackage);
    }
}

TEST_F(LinuxFileSystemTest, FollowsLinks)
{
    std::filesystem::create_directories(folder.path("real/inner"));
    std::filesystem::create_symlink(folder.path("real"), folder.path("link"));
    std::filesystem::create_symlink("nowhere", folder.path("broken"));
    auto const real = files.resolvingSymlinks(url("real"));
    EXPECT_EQ(files.resolvingSymlinks(url("link/inner")), real.appending("inner"));
    EXPECT_EQ(files.resolvingSymlinks(url("absent")), url("absent"));
}

TEST_F(LinuxFileSystemTest, NamesFilesInValidText)
{
    chmod(folder.write("app.desktop", "[Desktop Entry]\nType=Application\nName=Text Éditor\nExec=app\n").c_str(), 0755);
    folder.write("broken.desktop", "no entry");
    EXPECT_EQ(files.localizedName(url("app.desktop")), "Text Éditor") << "an entry stands for its application";
    LinuxFileSystem const distrusting(MountWatch::systemTable, StartTrust({}, { .system = nobody, .self = nobody }));
    EXPECT_EQ(distrusting.localizedName(url("app.desktop")), "app.desktop") << "and poses as nothing where it was not installed";
    EXPECT_EQ(files.localizedName(url("broken.desktop")), "broken.desktop");
    EXPECT_EQ(files.localizedName(url("Grüße.txt")), "Grüße.txt");
    EXPECT_EQ(files.localizedName(url("na\xEFve")), "na\uFFFDve");
    EXPECT_EQ(files.volumeName(Url::fromPath("/")), "") << "a volume without a name of its own";
    EXPECT_EQ(files.volumeName(url("")), std::nullopt) << "no volume's root";
    EXPECT_FALSE(files.isOnReadOnlyVolume(url("")));
}

TEST_F(LinuxFileSystemTest, MakesFoldersWithTheirParents)
{
    EXPECT_TRUE(files.createDirectory(url("a/b/c")));
    EXPECT_TRUE(files.createDirectory(url("a/b/c"))) << "an existing folder is fine";
    EXPECT_TRUE(std::filesystem::is_directory(folder.path("a/b/c")));
    EXPECT_TRUE(files.isWritableDirectory(url("a/b/c")));
    writeText(folder.path("file"), "x");
    EXPECT_EQ(files.createDirectory(url("file")).error(), "File exists");
    EXPECT_EQ(files.createDirectory(url("file/below")).error(), "Not a directory");
    EXPECT_FALSE(files.isWritableDirectory(url("file")));
    EXPECT_FALSE(files.isWritableDirectory(url("absent")));
}

TEST_F(LinuxFileSystemTest, ReadsPlainFilesOnly)
{
    std::string const content("a\0b\xFF", 4);
    writeText(folder.path("file"), content);
    writeText(folder.path("empty"), "");
    ASSERT_EQ(::mkfifo((folder.path("pipe")).c_str(), 0600), 0);
    EXPECT_EQ(files.read(url("file")).value(), bytesOf(content));
    EXPECT_TRUE(files.read(url("empty")).value().empty());
    EXPECT_EQ(files.read(url("absent")).error(), "No such file or directory");
    EXPECT_EQ(files.read(url("")).error(), "Is a directory");
    EXPECT_EQ(files.read(url("pipe")).error(), "Not a regular file") << "and does not wait for a writer";
    writeText(folder.path("huge"), "");
    ASSERT_EQ(::truncate((folder.path("huge")).c_str(), off_t { 1 } << 40), 0);
    EXPECT_EQ(files.read(url("huge")).error(), "File too large");
    auto const unsized = files.read(Url::fromPath("/proc/self/smaps")).value();
    EXPECT_GT(unsized.size(), std::size_t { 64 } << 10) << "a file that does not tell its size";
    EXPECT_EQ(unsized.back(), std::byte { '\n' });
    EXPECT_FALSE(readWholeFile("/proc/self/smaps", 1000)) << "nor one that turns out to be too large";
}

TEST_F(LinuxFileSystemTest, ReplacesAFileAsAWhole)
{
    EXPECT_TRUE(files.write(url("file"), bytesOf("one")));
    std::filesystem::permissions(folder.path("file"), std::filesystem::perms(0640));
    EXPECT_TRUE(files.write(url("file"), bytesOf("two")));
    EXPECT_EQ(readText(folder.path("file")), "two");
    EXPECT_EQ(std::filesystem::status(folder.path("file")).permissions(), std::filesystem::perms(0640)) << "permissions stay";
    std::filesystem::create_symlink("file", folder.path("link"));
    EXPECT_TRUE(files.write(url("link"), bytesOf("three")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link")));
    EXPECT_EQ(readText(folder.path("file")), "three");
    EXPECT_EQ(files.write(url(""), bytesOf("x")).error(), "Is a directory");
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(files.write(url("pipe"), bytesOf("x")).error(), "Not a regular file");
    EXPECT_TRUE(std::filesystem::is_fifo(folder.path("pipe")));
    EXPECT_EQ(files.write(url("absent/file"), bytesOf("x")).error(), "No such file or directory");
    std::filesystem::rename(folder.path("file"), folder.path("moved"));
    EXPECT_FALSE(files.write(url("link"), bytesOf("x"))) << "nobody knows what a broken link leads to";
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link")));
    std::filesystem::rename(folder.path("moved"), folder.path("file"));
    rlimit whole {};
    ::getrlimit(RLIMIT_FSIZE, &whole);
    rlimit const small { 4, whole.rlim_max };
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &small);
    auto const failed = files.write(url("file"), bytesOf("longer than that"));
    ::setrlimit(RLIMIT_FSIZE, &whole);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(failed.error(), "File too large");
    EXPECT_EQ(readText(folder.path("file")), "three");
    EXPECT_EQ(folder.names(), (std::vector<std::string> { "file", "link", "pipe" })) << "no temporary file stays";
}

TEST_F(LinuxFileSystemTest, KeepsWhatIsPrivateFromOthers)
{
    std::filesystem::create_directory(folder.path("open"));
    for (auto const* name : { "open", "new/deep" }) {
        EXPECT_TRUE(files.writePrivately(url(name + std::string("/file")), bytesOf("x")));
        EXPECT_EQ(std::filesystem::status(folder.path(name)).permissions(), std::filesystem::perms(0700)) << name;
        EXPECT_EQ(std::filesystem::status(folder.path(name + std::string("/file"))).permissions(), std::filesystem::perms(0600)) << name;
    }
}

TEST_F(LinuxFileSystemTest, AReplacedFileOutlivesAPowerCut)
{
    std::vector<std::string> calls;
    toDisk = &calls;
    EXPECT_TRUE(files.write(url("file"), bytesOf("one")));
    toDisk = nullptr;
    EXPECT_EQ(calls, (std::vector<std::string> { "sync file", "rename", "sync folder" }));
}

TEST_F(LinuxFileSystemTest, WritesNothingWhereItMayNot)
{
    std::filesystem::create_directory(folder.path("closed"));
    writeText(folder.path("closed/file"), "old");
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder.path("closed"), std::filesystem::perms(0555));
    {
        tests::WithoutRoot const ordinary;
        EXPECT_FALSE(files.isWritableDirectory(url("closed")));
        EXPECT_EQ(files.write(url("closed/file"), bytesOf("new")).error(), "Permission denied");
        EXPECT_EQ(files.remove(url("closed/file")).error(), "Permission denied");
    }
    EXPECT_EQ(readText(folder.path("closed/file")), "old");
}

TEST_F(LinuxFileSystemTest, ListsAndRemovesNamesOfAnyBytes)
{
    writeText(folder.path(".hidden"), "x");
    writeText(folder.path("na\xEFve\n"), "x");
    std::filesystem::create_directory(folder.path("sub"));
    auto names = files.names(url("")).value();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string> { ".hidden", "na\xEFve\n", "sub" }));
    EXPECT_TRUE(files.remove(url("na\xEFve\n")));
    EXPECT_FALSE(files.exists(url("na\xEFve\n")));
    EXPECT_EQ(files.names(url("absent")).error(), "No such file or directory");
    EXPECT_EQ(files.remove(url("absent")).error(), "No such file or directory");
}

TEST(LinuxFileSystem, ARemoteFileIsTakenToBeThereAndToBeWhatItsNameSays)
{
    TemporaryFolder const nas;
    TemporaryFolder const elsewhere;
    auto const table = elsewhere.path("mountinfo");
    writeText(table, "1 0 1:1 / / rw - ext4 /dev/a rw\n2 1 0:9 / " + nas.path() + " rw - cifs //nas/x rw\n");
    LinuxFileSystem const files(table);
    struct Row {
        std::string name;
        bool isDirectory, isPackage;
    };
    Row const rows[] = { { "Films", true, false }, { "film.mkv", false, false }, { "Tool.app", true, true }, { "x.desktop", false, true } };
    for (auto const& row : rows) {
        auto const url = Url::fromPath(nas.path(row.name)); // nothing is there
        EXPECT_TRUE(files.exists(url)) << row.name;
        EXPECT_EQ(files.traits(url)->isDirectory, row.isDirectory) << row.name;
        EXPECT_EQ(files.traits(url)->isPackage, row.isPackage) << row.name;
        EXPECT_EQ(files.localizedName(url), row.name);
    }
    EXPECT_FALSE(files.exists(Url::fromPath(elsewhere.path("nothing"))));
}

} // namespace
} // namespace zv
