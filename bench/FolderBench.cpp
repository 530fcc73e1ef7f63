// Folders listed into menus, against a bare listing and against the desktop's own library,
// all in the same run. ZV_BENCH_FOLDER names a folder on the file system to measure; the
// temporary one is the default.

#include "app/menu/DynamicSubmenu.h"
#include "app/menu/MenuBuilder.h"
#include "base/MainThread.h"
#include "bench/Ratio.h"
#include "platform/linux/files/LinuxFolderReader.h"
#include "tests/app/menu/MenuBench.h"

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <gio/gio.h>
#include <unicode/coll.h>
#include <unicode/unistr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <map>
#include <memory>

namespace {

using namespace zv;
namespace fs = std::filesystem;

constexpr std::size_t firstInOrder = 500;

/// Realistic names; every fiftieth child is a folder.
std::string nameOf(int index)
{
    static constexpr std::array patterns { "IMG_%d.jpg", "Report %d (final).pdf", "notes-%d.txt", "%d Holiday in Zürich.mov", "Makefile.%d" };
    std::array<char, 128> text {};
    std::snprintf(text.data(), text.size(), patterns[static_cast<std::size_t>(index) % patterns.size()], (index * 7919) % 1000003);
    return text.data();
}

/// Folders of every size, made on first use and removed at the end.
class Folders {
public:
    static Folders& shared()
    {
        static Folders folders;
        return folders;
    }
    ~Folders() { fs::remove_all(m_root); }
    Folders(Folders const&) = delete;
    Folders& operator=(Folders const&) = delete;

    std::string const& ofSize(int count)
    {
        auto const [found, isNew] = m_paths.try_emplace(count, m_root + "/" + std::to_string(count));
        if (isNew)
            fill(found->second, count);
        return found->second;
    }

private:
    Folders()
    {
        auto const* const named = std::getenv("ZV_BENCH_FOLDER");
        std::string pattern = (named ? fs::path(named) : fs::temp_directory_path()) / "zv-bench-XXXXXX";
        m_root = mkdtemp(pattern.data());
    }
    static void fill(std::string const& path, int count)
    {
        fs::create_directory(path);
        for (int i = 0; i < count; ++i) {
            auto const child = path + "/" + nameOf(i);
            if (i % 50 == 0)
                fs::create_directory(child);
            else
                close(open(child.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
        }
    }

    std::string m_root;
    std::map<int, std::string> m_paths;
};

/// The bare listing: names by getdents64, their sort keys, the first of them in order.
std::size_t listBare(std::string const& path)
{
    static auto const collator = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(icu::Locale::getRoot(), status));
        made->setStrength(icu::Collator::SECONDARY);
        made->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
        return made;
    }();
    struct Named {
        std::string name, key;
    };
    std::vector<Named> all;
    std::array<uint8_t, 1024> key {};
    std::array<char, 65536> buffer;
    int const folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (ssize_t count = 0; (count = getdents64(folder, buffer.data(), buffer.size())) > 0;) {
        for (ssize_t offset = 0; offset < count;) {
            auto const* const record = reinterpret_cast<dirent64 const*>(buffer.data() + offset);
            auto const length = collator->getSortKey(icu::UnicodeString::fromUTF8(record->d_name), key.data(), static_cast<int32_t>(key.size()));
            all.push_back({ record->d_name, { reinterpret_cast<char const*>(key.data()), static_cast<std::size_t>(length) } });
            offset += record->d_reclen;
        }
    }
    close(folder);
    auto const end = all.begin() + static_cast<std::ptrdiff_t>(std::min(all.size(), firstInOrder));
    std::partial_sort(all.begin(), end, all.end(), [](Named const& a, Named const& b) { return a.key < b.key; });
    return all.size();
}

/// The desktop's library: all its facts of every file, sorted by its own keys.
std::size_t listByGio(std::string const& path)
{
    struct Named {
        std::string key;
        GFileInfo* info;
    };
    std::vector<Named> all;
    auto* const folder = g_file_new_for_path(path.c_str());
    auto* const enumerator = g_file_enumerate_children(folder, "standard::*", G_FILE_QUERY_INFO_NONE, nullptr, nullptr);
    while (auto* const info = g_file_enumerator_next_file(enumerator, nullptr, nullptr)) {
        auto* const key = g_utf8_collate_key_for_filename(g_file_info_get_display_name(info), -1);
        all.push_back({ key, info });
        g_free(key);
    }
    std::sort(all.begin(), all.end(), [](Named const& a, Named const& b) { return a.key < b.key; });
    for (auto const& named : all)
        g_object_unref(named.info);
    g_object_unref(enumerator);
    g_object_unref(folder);
    return all.size();
}

/// A submenu over a real folder, opened again and again.
struct OpenedFolder : MenuBench {
    explicit OpenedFolder(std::string const& path)
        : entry(realBuilder.makeDynamicSubmenuItem("Folder", DynamicMenuSource::folder(Url::fromPath(path), 10)))
    {
        preferences.setShowIcons(false);
    }
    std::size_t list()
    {
        entry.submenu->needsUpdate();
        return entry.submenu->entries.size();
    }

    FolderListings realFolders { std::make_shared<LinuxFolderReader>(DesktopAudience { userLanguages(), {} }), time };
    SubmenuSources realSources { realFolders, lists, listedFolders, time, openingKeys };
    MenuBuilder realBuilder { { preferences, { files, bookmarks }, icons, commands, entryMenus, workspace, resources, text }, realSources };
    MenuEntry entry;
};

void bare(benchmark::State& state)
{
    auto const& path = Folders::shared().ofSize(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(listBare(path));
}

void submenu(benchmark::State& state)
{
    OpenedFolder opened(Folders::shared().ofSize(static_cast<int>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(opened.list());
}

void gio(benchmark::State& state)
{
    auto const& path = Folders::shared().ofSize(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(listByGio(path));
}

/// The seconds of this thread's own CPU time, without that of other programs.
template <class Work> double secondsFor(Work work)
{
    auto const now = [] {
        timespec time {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    };
    auto const start = now();
    benchmark::DoNotOptimize(work());
    return now() - start;
}

using Measured = std::map<std::pair<std::string, std::int64_t>, bench::Medians>;

/// By peer and size.
Measured& measured()
{
    static Measured all;
    return all;
}

/// Measures both sides in turns, so that other load meets both alike; the medians count.
template <class Other> void ratio(benchmark::State& state, char const* peer, Other other)
{
    auto const& path = Folders::shared().ofSize(static_cast<int>(state.range(0)));
    OpenedFolder opened(path);
    std::vector<double> ours;
    std::vector<double> others;
    for (auto _ : state) {
        others.push_back(secondsFor([&] { return other(path); }));
        ours.push_back(secondsFor([&] { return opened.list(); }));
    }
    bench::Medians const found { bench::median(ours) * 1e9, bench::median(others) * 1e9 };
    state.counters["ours_over_other"] = found.ours / found.theirs;
    measured()[{ peer, state.range(0) }] = found; // the last run is the longest
}

void tree(benchmark::State& state)
{
    MenuBench bench;
    bench.preferences.setShowIcons(false);
    std::vector<MenuItem> items;
    static constexpr std::array kinds { MenuItemKind::sleep, MenuItemKind::mountedVolumes, MenuItemKind::separator, MenuItemKind::lockScreen,
        MenuItemKind::recentDocs };
    for (int group = 0; group < 10; ++group) {
        auto submenu = MenuItem::ofKind(MenuItemKind::submenu);
        for (std::size_t i = 0; i < 99; ++i)
            submenu.children.push_back(MenuItem::ofKind(kinds[i % kinds.size()]));
        items.push_back(submenu);
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(bench.build(items)->entries.size());
}

BENCHMARK(bare)->Arg(250)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(submenu)->Arg(250)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(gio)->Arg(250)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ratio, submenu_over_bare, "the bare listing", listBare)->RangeMultiplier(10)->Range(10, 100000)->Arg(250)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ratio, submenu_over_gio, "GIO", listByGio)->RangeMultiplier(10)->Range(10, 100000)->Arg(250)->Unit(benchmark::kMicrosecond);
BENCHMARK(tree)->Name("tree_of_1000_items")->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    markMainThread();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    for (auto const& [cell, found] : measured())
        bench::note("listing a folder into a menu", static_cast<std::size_t>(cell.second), found, cell.first);
    benchmark::Shutdown();
    return 0;
}
