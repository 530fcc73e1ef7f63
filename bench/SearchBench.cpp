// The search below the menu: a query over so many titles against finding its text in each, and a search over folders that
// nobody has read yet, from the first key to its results, against `find`.

#include "app/search/BestMatches.h"
#include "app/search/SubmenuSearch.h"
#include "base/MainThread.h"
#include "bench/Ratio.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/LinuxFolderReader.h"
#include "platform/linux/toolkit/QtTasks.h"
#include "tests/app/menu/MenuBench.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>
#include <fstream>

using namespace zv;

namespace {

constexpr std::size_t sizes[] = { 10, 100, 1'000, 10'000, 100'000 };
constexpr std::size_t mostMatches = 100;

/// Folders of up to a thousand titles; one title in eight has the text that is looked for.
SearchPlaces placesOf(std::size_t count)
{
    static constexpr std::array words { "Report", "Invoice", "IMG", "Grüße", "Holiday photo", "Syntax", "Résumé", "Backup" };
    auto places = std::make_shared<std::vector<SearchPlace>>();
    for (std::size_t i = 0; i < count; ++i) {
        if (i % 1'000 == 0)
            places->push_back({ .way = { "Documents", std::to_string(i) }, .titles = {}, .folder = std::nullopt });
        auto const title = words[i % words.size()] + std::string(" ") + std::to_string((i * 7919) % 1'000'003) + ".pdf";
        places->back().titles.add(title);
        places->back().identities.push_back(title);
    }
    return places;
}

/// A menu with a submenu over a real folder.
struct Searched : MenuBench {
    explicit Searched(std::string const& folder)
    {
        menu->entries.push_back(realBuilder.makeDynamicSubmenuItem("Folder", DynamicMenuSource::folder(Url::fromPath(folder), 10)));
    }
    /// From a key to the first entries found, or to all.
    void find(bool isFinal)
    {
        bool isThere = false;
        SubmenuSearch search({ realBuilder, realSources, disk, tasks, nullptr }, *menu);
        search.onFound = [&](MenuSearch::Found const& found) { isThere = found.isFinal || (!isFinal && !found.entries.empty()); };
        search.find("tax", 0);
        while (!isThere)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    QtTasks tasks;
    std::shared_ptr<LinuxFileSystem> disk = std::make_shared<LinuxFileSystem>();
    FolderListings realFolders { std::make_shared<LinuxFolderReader>(DesktopAudience { userLanguages(), {} }), tasks };
    SubmenuSources realSources { realFolders, lists, listedFolders, time, openingKeys };
    MenuBuilder realBuilder { { preferences, { files, bookmarks }, icons, commands, entryMenus, workspace, resources, text }, realSources };
    std::shared_ptr<Menu> menu = std::make_shared<Menu>();
};

void compareSearches(std::filesystem::path const& root, std::size_t count)
{
    auto const folder = root / std::to_string(count);
    auto const places = placesOf(count);
    for (auto const& place : *places) {
        auto const below = folder / place.way.back();
        std::filesystem::create_directories(below);
        for (std::size_t i = 0; i < place.titles.size(); ++i)
            std::ofstream(below / place.titles[i]);
    }
    Searched searched(folder.string());
    auto const command = "find '" + folder.string() + "' -iname '*tax*' > /dev/null";
    auto const nothing = [] {};
    auto const compare = [&](char const* row, bool isFinal) {
        auto const found = bench::wallRatio(std::string(row) + ", " + std::to_string(count), 1, bench::Side { [&] { searched.find(isFinal); }, nothing },
            bench::Side { [&] { benchmark::DoNotOptimize(std::system(command.c_str())); }, nothing });
        bench::note(row, count, found, "all of find");
    };
    compare("from a key to the first results", false);
    compare("from a key to all results", true);
}

} // namespace

int main(int argc, char** argv)
{
    markMainThread();
    QCoreApplication const application(argc, argv);
    ChosenAges const ages({ "Syntax 7919.pdf" });
    for (auto const count : sizes) {
        auto const places = placesOf(count);
        auto const rank = [&] { benchmark::DoNotOptimize(bestMatches({ places }, SearchQuery("tax"), ages, mostMatches).size()); };
        auto const find = [&] {
            std::size_t found = 0;
            for (auto const& place : *places) {
                for (std::size_t i = 0; i < place.titles.size(); ++i)
                    found += place.titles[i].find("tax") != std::string_view::npos ? 1 : 0;
            }
            benchmark::DoNotOptimize(found);
        };
        bench::cell("a query over the titles below the menu", count, "finding its text in each", rank, find);
    }
    std::string pattern = (std::filesystem::temp_directory_path() / "zv-search-XXXXXX").string();
    std::filesystem::path const root = mkdtemp(pattern.data());
    for (auto const count : sizes)
        compareSearches(root, count);
    std::filesystem::remove_all(root);
}
