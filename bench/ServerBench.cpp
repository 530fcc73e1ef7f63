// A folder on a server with 50 ms a round trip: its submenu against a bare listing there, and how long the program waits
// when the submenu opens. The server is a local folder: each call of the system that looks below it takes so much longer.

#include "base/MainThread.h"
#include "bench/Ratio.h"
#include "platform/linux/files/LinuxFolderReader.h"
#include "platform/linux/toolkit/QtTasks.h"
#include "tests/app/menu/MenuBench.h"

#include <QCoreApplication>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdarg>
#include <filesystem>
#include <fstream>
#include <thread>

namespace {

constexpr auto roundTrip = std::chrono::milliseconds(50);

/// What lies on the server.
std::string root;
std::array<std::atomic<bool>, 4096> isThere; ///< by descriptor

bool isOpenThere(int folder) { return folder >= 0 && isThere.at(static_cast<std::size_t>(folder)); }

/// A call that looks at the path, or at the descriptor alone, asks the server.
bool ask(int folder, char const* path = "")
{
    bool const asks = *path == '/' ? !root.empty() && std::string_view(path).starts_with(root) : isOpenThere(folder);
    if (asks)
        std::this_thread::sleep_for(roundTrip);
    return asks;
}

template <class Function> Function* next(char const* name) { return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name)); }

int opened(int descriptor, bool there)
{
    if (descriptor >= 0)
        isThere.at(static_cast<std::size_t>(descriptor)) = there;
    return descriptor;
}

} // namespace

// In the place of the C library's, for this program.
extern "C" {

int openat(int folder, char const* path, int flags, ...)
{
    std::va_list rest;
    va_start(rest, flags);
    auto const mode = va_arg(rest, mode_t);
    va_end(rest);
    return opened(next<int(int, char const*, int, mode_t)>("openat")(folder, path, flags, mode), ask(folder, path));
}

int open(char const* path, int flags, ...)
{
    std::va_list rest;
    va_start(rest, flags);
    auto const mode = va_arg(rest, mode_t);
    va_end(rest);
    return openat(AT_FDCWD, path, flags, mode);
}

ssize_t getdents64(int folder, void* buffer, std::size_t size) noexcept
{
    ask(folder);
    return next<ssize_t(int, void*, std::size_t)>("getdents64")(folder, buffer, size);
}

int fstatat(int folder, char const* path, struct stat* status, int flags) noexcept
{
    ask(folder, path);
    return next<int(int, char const*, struct stat*, int)>("fstatat")(folder, path, status, flags);
}

int stat(char const* path, struct stat* status) noexcept { return fstatat(AT_FDCWD, path, status, 0); }

int lstat(char const* path, struct stat* status) noexcept { return fstatat(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW); }

int statx(int folder, char const* path, int flags, unsigned mask, struct statx* status) noexcept
{
    ask(folder, path);
    return next<int(int, char const*, int, unsigned, struct statx*)>("statx")(folder, path, flags, mask, status);
}

ssize_t readlinkat(int folder, char const* path, char* buffer, std::size_t size) noexcept
{
    ask(folder, path);
    return next<ssize_t(int, char const*, char*, std::size_t)>("readlinkat")(folder, path, buffer, size);
}
}

namespace {

using namespace zv;
namespace fs = std::filesystem;

/// As the C library lists: 32 KB a call, to the end.
void listBare(std::string const& path)
{
    std::array<char, std::size_t { 32 } << 10> buffer;
    int const folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    while (getdents64(folder, buffer.data(), buffer.size()) > 0) { }
    close(folder);
}

/// A submenu over the folder, of a program to which it lies on a mounted server.
struct Server : MenuBench {
    Server(std::string const& path, std::string const& mounts)
        : realFolders(std::make_shared<LinuxFolderReader>(DesktopAudience { userLanguages(), {} }, mounts), tasks)
        , entry(realBuilder.makeDynamicSubmenuItem("Folder", DynamicMenuSource::folder(Url::fromPath(path), 10)))
    {
        entry.submenu->onRefilled = [this] { isThere = true; };
    }
    void open()
    {
        isThere = false;
        entry.submenu->needsUpdate();
    }
    void await()
    {
        while (!isThere)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    QtTasks tasks;
    FolderListings realFolders;
    SubmenuSources realSources { realFolders, lists, listedFolders, time, openingKeys };
    MenuBuilder realBuilder { { preferences, { files, bookmarks }, icons, commands, entryMenus, workspace, resources, text }, realSources };
    MenuEntry entry;
    bool isThere = false;
};

void compare(std::string const& path, std::string const& mounts, std::size_t count)
{
    Server server(path, mounts);
    auto const listed = [&] {
        server.open();
        server.await();
    };
    auto const bare = [&] { listBare(path); };
    auto const nothing = [] {};
    auto const all = bench::wallRatio("a folder on a server, " + std::to_string(count), 1, bench::Side { listed, nothing }, bench::Side { bare, nothing }, 3);
    bench::note("a folder on a server, until its entries are there", count, all, "the bare listing there");
    auto const waits = bench::wallRatio(
        "opening it, " + std::to_string(count), 1, bench::Side { [&] { server.open(); }, [&] { server.await(); } }, bench::Side { bare, nothing }, 3);
    bench::note("opening a server’s folder, the program waits", count, waits, "the bare listing there");
}

} // namespace

int main(int argc, char** argv)
{
    markMainThread();
    QCoreApplication const application(argc, argv);
    std::string pattern = (fs::temp_directory_path() / "zv-server-XXXXXX").string();
    fs::path const folder = mkdtemp(pattern.data());
    auto const mounts = folder / "mounts";
    std::ofstream(mounts) << "1 0 0:1 / / rw - ext4 /dev/disk rw\n2 1 0:2 / " << (folder / "server").string() << " rw - nfs server:/share rw\n";
    for (std::size_t const count : { 10, 100, 1'000, 10'000 }) {
        auto const there = folder / "server" / std::to_string(count);
        fs::create_directories(there);
        for (std::size_t i = 0; i < count; ++i)
            std::ofstream(there / ("Report " + std::to_string(i) + ".pdf"));
        root = (folder / "server").string();
        compare(there.string(), mounts.string(), count);
        root.clear();
    }
    fs::remove_all(folder);
}
