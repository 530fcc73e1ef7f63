#include "platform/linux/files/LinuxFolderReader.h"
#include "tests/linux/ChildProcess.h"
#include "tests/linux/TemporaryFolder.h"

#include <dirent.h>
#include <map>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool tellsTypes = true; // some file systems tell none

} // namespace

/// In place of the library's, for all of this program.
ssize_t getdents64(int folder, void* buffer, size_t size) noexcept
{
    auto const count = ::syscall(SYS_getdents64, folder, buffer, size);
    for (ssize_t offset = 0; offset < count && !tellsTypes;) {
        auto* const record = reinterpret_cast<dirent64*>(static_cast<char*>(buffer) + offset);
        record->d_type = DT_UNKNOWN;
        offset += record->d_reclen;
    }
    return count;
}

namespace zv {
namespace {

using tests::TemporaryFolder;

struct FolderReaderTest : testing::Test {
    /// The kinds of the children, such as "package file", by name.
    std::map<std::string, std::string> kinds(HiddenFiles hiddenFiles = HiddenFiles::skipped)
    {
        std::map<std::string, std::string> found;
        auto const contents = reader().read(Url::fromPath(folder.path()), hiddenFiles);
        for (std::size_t i = 0; contents && i < contents->size(); ++i) {
            auto const item = (*contents)[i];
            static std::map<FileFault, std::string> const faults { { FileFault::leadsNowhere, "leading nowhere" },
                { FileFault::programMissing, "lacking its program" } };
            auto const fault = faults.find(item.traits.fault);
            found[std::string(item.name)]
                = fault != faults.end() ? fault->second : std::string(item.traits.isPackage ? "package " : "") + (item.traits.isDirectory ? "folder" : "file");
        }
        return found;
    }
    std::vector<std::string> visibleNames(HiddenFiles hiddenFiles = HiddenFiles::skipped)
    {
        std::vector<std::string> names;
        for (auto const& [name, kind] : kinds(hiddenFiles))
            names.push_back(name);
        return names;
    }
    std::string localizedNameOf(std::string const& name)
    {
        auto const contents = reader().read(Url::fromPath(folder.path()), HiddenFiles::skipped);
        for (std::size_t i = 0; i < contents->size(); ++i) {
            if ((*contents)[i].name == name)
                return std::string((*contents)[i].localizedName);
        }
        return "(not listed)";
    }
    LinuxFolderReader reader() const { return LinuxFolderReader(audience, mountInfo, { .trust = trust }); }
    void mountRemotely(std::string const& path)
    {
        mountInfo = elsewhere.write("mountinfo", "21 1 8:1 / / rw - ext4 /dev/sda1 rw\n36 21 0:40 / " + path + " rw - nfs4 nas:/export rw\n");
    }

    TemporaryFolder folder;
    TemporaryFolder elsewhere;
    DesktopAudience audience { { "de_AT", "de" }, { "XFCE" } };
    std::string mountInfo = "/proc/self/mountinfo";
    StartTrust trust { { folder.path(), elsewhere.path() } };
};

TEST_F(FolderReaderTest, TellsWhatEachChildIs)
{
    folder.write("file", "");
    folder.makeFolder("folder");
    folder.makeFolder("Tool.app");
    folder.makeFolder("Other.AppDir");
    folder.write("file.app", "");
    folder.write("x.desktop", "[Desktop Entry]\nName=X\nTryExec=sh\n");
    folder.write("y.desktop", "[Desktop Entry]\nName=Y\nTryExec=/no/such/program\n");
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    folder.link("link", folder.path("folder"));
    for (bool const areTypesTold : { true, false }) {
        tellsTypes = areTypesTold;
        EXPECT_EQ(kinds(),
            (std::map<std::string, std::string> { { "file", "file" }, { "folder", "folder" }, { "Tool.app", "package folder" },
                { "Other.AppDir", "package folder" }, { "file.app", "file" }, { "x.desktop", "package file" }, { "y.desktop", "lacking its program" },
                { "pipe", "file" }, { "link", "folder" } }));
    }
    tellsTypes = true;
}

TEST_F(FolderReaderTest, LinksAreWhatTheyLeadTo)
{
    elsewhere.makeFolder("Folder");
    elsewhere.makeFolder("Tool.app");
    elsewhere.write("file", "");
    elsewhere.write("x.desktop", "[Desktop Entry]\nName=X\n");
    folder.link("to folder", elsewhere.path("Folder"));
    folder.link("to package", elsewhere.path("Tool.app"));
    folder.link("to file", elsewhere.path("file"));
    folder.link("to application", elsewhere.path("x.desktop"));
    folder.link("to link", "to folder");
    folder.link("Folder.app", elsewhere.path("Folder"));
    folder.link("broken", "/nowhere/at/all");
    folder.link("loop a", "loop b");
    folder.link("loop b", "loop a");
    folder.link("itself", "itself");
    folder.link("up", "..");
    std::map<std::string, std::string> const expected { { "to folder", "folder" }, { "to package", "package folder" }, { "to file", "file" },
        { "to application", "package file" }, { "to link", "folder" }, { "Folder.app", "folder" }, { "broken", "leading nowhere" },
        { "loop a", "leading nowhere" }, { "loop b", "leading nowhere" }, { "itself", "leading nowhere" }, { "up", "folder" } };
    EXPECT_EQ(kinds(), expected);
    mountRemotely("/zv-nowhere");
    EXPECT_EQ(kinds(), expected) << "walked step by step, where something remote is mounted";
}

TEST_F(FolderReaderTest, HiddenAreDotFilesAndThoseTheFolderNames)
{
    folder.write(".profile", "");
    folder.write("shown", "");
    folder.write("backup~", "");
    folder.makeFolder("lost+found");
    folder.write(".hidden", "backup~\nlost+found\n");
    EXPECT_EQ(visibleNames(), std::vector<std::string> { "shown" });
    EXPECT_EQ(visibleNames(HiddenFiles::included), (std::vector<std::string> { ".hidden", ".profile", "backup~", "lost+found", "shown" }));
}

TEST_F(FolderReaderTest, WaitsForNoPipe)
{
    ASSERT_EQ(mkfifo(folder.path(".hidden").c_str(), 0600), 0);
    ASSERT_EQ(mkfifo(elsewhere.path("pipe").c_str(), 0600), 0);
    folder.link("x.desktop", elsewhere.path("pipe"));
    EXPECT_EQ(visibleNames(), std::vector<std::string> { "x.desktop" });
}

TEST_F(FolderReaderTest, NamesAreAnyBytes)
{
    std::vector<std::string> const names { "\xFF\xFE", "a\nb", "right\u202Eleft", std::string(255, 'n') };
    for (auto const& name : names)
        folder.write(name, "");
    auto expected = names;
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(visibleNames(), expected);
}

TEST_F(FolderReaderTest, ApplicationEntriesCarryTheirLocalizedNameOrAreLeftOut)
{
    std::pair<char const*, char const*> const entries[] = {
        { "web.desktop", "[Desktop Entry]\nName=Web Browser\nName[de]=Netz\n" },
        { "no.desktop", "[Desktop Entry]\nName=No\nNoDisplay=true\n" },
        { "gnome.desktop", "[Desktop Entry]\nName=G\nOnlyShowIn=GNOME;\n" },
        { "text.desktop", "just text" },
        { "wrong.desktop", "[Desktop Entry]\nName=bad\xFF\n" },
    };
    for (auto const& [name, text] : entries)
        folder.write(name, text);
    EXPECT_EQ(visibleNames(HiddenFiles::included), (std::vector<std::string> { "text.desktop", "web.desktop", "wrong.desktop" }));
    EXPECT_EQ(localizedNameOf("web.desktop"), "Netz");
    EXPECT_EQ(localizedNameOf("text.desktop"), "") << "the file's own name is shown";
    EXPECT_EQ(localizedNameOf("wrong.desktop"), "bad\uFFFD") << "not UTF-8";
}

TEST_F(FolderReaderTest, ALinkToAnApplicationKeepsANameOfItsOwn)
{
    auto const entry = elsewhere.write("web.desktop", "[Desktop Entry]\nName=Web Browser\nNoDisplay=true\n");
    folder.link("My Browser", entry);
    folder.link("web.desktop", entry);
    EXPECT_EQ(visibleNames(), std::vector<std::string> { "My Browser" });
    EXPECT_EQ(localizedNameOf("My Browser"), "");
}

TEST_F(FolderReaderTest, TellsWhyAFolderCannotBeRead)
{
    folder.write("file", "");
    folder.makeFolder("private");
    folder.link("loop", "loop");
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(folder.path("private").c_str(), 0), 0);
    auto const failureOf = [&](std::string const& name) { return reader().read(Url::fromPath(folder.path(name)), HiddenFiles::skipped).error(); };
    EXPECT_EQ(failureOf("file"), FolderReadFailure::notAFolder);
    EXPECT_EQ(failureOf("nothing"), FolderReadFailure::notFound);
    EXPECT_EQ(failureOf("loop"), FolderReadFailure::notFound);
    tests::WithoutRoot const ordinary;
    EXPECT_EQ(failureOf("private"), FolderReadFailure::notPermitted);
}

TEST_F(FolderReaderTest, RemoteIsKnownFromTheMountTableAlone)
{
    mountRemotely(folder.path("nas")); // nothing is there for a look to find
    folder.makeFolder("local");
    folder.link("way", folder.path("nas/films"));
    std::pair<std::string, bool> const rows[] = { { "nas", true }, { "nas/films", true }, { "way", true }, { "way/deeper", true }, { "local", false },
        { "nas2", false }, { "local/../nas/x", true } };
    for (auto const& [path, isRemote] : rows)
        EXPECT_EQ(reader().isRemote(Url::fromPath(folder.path() + "/" + path)), isRemote) << path;
}

TEST_F(FolderReaderTest, LinksOntoARemoteFileSystemAreNotFollowed)
{
    mountRemotely(elsewhere.path("nas"));
    elsewhere.makeFolder("nas");
    elsewhere.write("nas/plan", "");
    for (auto const* name : { "films", "film.mkv", "plan" })
        folder.link(name, elsewhere.path("nas/" + std::string(name)));
    EXPECT_EQ(kinds(), (std::map<std::string, std::string> { { "films", "folder" }, { "film.mkv", "file" }, { "plan", "folder" } }))
        << "guessed by name, also what a look would find";
}

TEST_F(FolderReaderTest, ProcIsListedLikeAnyFolder)
{
    auto const contents = reader().read(Url::fromPath("/proc/self"), HiddenFiles::skipped);
    ASSERT_TRUE(contents);
    std::map<std::string, bool> isFolder;
    for (std::size_t i = 0; i < contents->size(); ++i)
        isFolder[std::string((*contents)[i].name)] = (*contents)[i].traits.isDirectory;
    EXPECT_TRUE(isFolder.at("fd"));
    EXPECT_TRUE(isFolder.at("cwd")) << "a link to a folder";
    EXPECT_FALSE(isFolder.at("exe"));
    EXPECT_FALSE(isFolder.at("status"));
}

} // namespace
} // namespace zv
