// The machine's lists and their icons. Work on the main thread when a submenu opens has
// "onMain" in its name: each is to stay below five milliseconds at the sizes given here.
// The others run in the background while the submenu says "Loading…".

#include "app/menu/MenuIcon.h"
#include "base/MainThread.h"
#include "platform/linux/apps/DesktopRecentFiles.h"
#include "platform/linux/apps/DesktopSettingsPanes.h"
#include "platform/linux/apps/RecentlyUsedFile.h"
#include "platform/linux/apps/WindowApplications.h"
#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/icons/ThemeIconSource.h"
#include "platform/linux/machine/DesktopVolumes.h"
#include "platform/linux/machine/SystemNetworkInterfaces.h"
#include "tests/app/lists/ListsFixture.h"
#include "tests/linux/TemporaryFolder.h"

#include <QApplication>
#include <benchmark/benchmark.h>

#include <gio/gio.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace zv;
using tests::TemporaryFolder;

constexpr int bookmarkCount = 50'000;
constexpr int applicationCount = 300;
constexpr int windowCount = 40;
constexpr int volumeCount = 20;
constexpr int iconCount = 250;

std::string bookmarkText(int number)
{
    auto const name = std::to_string(number);
    return "<bookmark href=\"file:///home/me/Documents/File%20" + name
        + ".pdf\" added=\"2023-06-01T10:00:00.123456Z\" modified=\"2023-06-01T10:00:00.123456Z\" visited=\"2023-06-01T10:00:00.123456Z\"><info>"
          "<metadata owner=\"http://freedesktop.org\"><mime:mime-type type=\"application/pdf\"/><bookmark:applications><bookmark:application "
          "name=\"Application "
        + std::to_string(number % applicationCount) + "\" exec=\"&apos;program-" + std::to_string(number % applicationCount)
        + " %u&apos;\" modified=\"2023-06-01T10:00:00.123456Z\" count=\"3\"/></bookmark:applications></metadata></info></bookmark>\n";
}

/// The files of a well-used machine, made once and removed at the end.
class Machine {
public:
    static Machine& shared()
    {
        static Machine machine;
        return machine;
    }

    TemporaryFolder disk;
    std::string recentlyUsed;
    ApplicationIndex index;
    std::vector<ClientWindow> windows;
    std::string mountInfo;
    std::vector<std::string> files;

private:
    Machine()
    {
        writeBookmarks();
        writeApplications();
        writeFiles();
        for (int i = 0; i < windowCount; ++i)
            windows.push_back({ static_cast<std::uint32_t>(i + 1), "Class" + std::to_string(i * 7 % applicationCount), "instance" });
        mountInfo = "1 0 8:1 / / rw - ext4 /dev/sda1 rw\n";
        for (int i = 0; i < 3 * volumeCount; ++i)
            mountInfo += std::to_string(i + 2) + " 1 0:" + std::to_string(i) + " / " + (i % 3 == 0 ? "/media/me/Disk" : "/proc/fs/") + std::to_string(i)
                + " rw - " + (i % 3 == 0 ? "vfat /dev/sdb" : "tmpfs none") + " rw\n";
    }
    void writeBookmarks()
    {
        std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xbel version=\"1.0\">\n";
        for (int i = 0; i < bookmarkCount; ++i)
            text += bookmarkText(i);
        recentlyUsed = disk.write("recently-used.xbel", text + "</xbel>\n");
    }
    void writeApplications()
    {
        for (int i = 0; i < applicationCount; ++i) {
            auto const number = std::to_string(i);
            std::string text = "[Desktop Entry]\nType=Application\nName=Application " + number + "\n";
            for (auto const* language : { "ar", "cs", "de", "el", "fr", "ja", "pt", "ru", "sv", "zh_CN" })
                text += "Name[" + std::string(language) + "]=Application " + number + "\n";
            text += "Exec=program-" + number + " %U\nIcon=application-x-executable\nStartupWMClass=Class" + number
                + (i % 5 == 0 ? "\nCategories=Settings;\n" : "\nCategories=Utility;\n");
            disk.write("applications/app" + number + ".desktop", text);
        }
        index = ApplicationIndex::read({ disk.path("applications") });
    }
    void writeFiles()
    {
        static constexpr std::array extensions { ".pdf", ".txt", ".png", ".odt", ".zip", ".cpp", ".mp3", ".mkv", ".html", "" };
        for (int i = 0; i < iconCount; ++i)
            files.push_back(disk.write("files/f" + std::to_string(i) + extensions[static_cast<std::size_t>(i) % extensions.size()], ""));
    }
};

void recentlyUsedInBackground(benchmark::State& state)
{
    auto& machine = Machine::shared();
    for (auto _ : state)
        benchmark::DoNotOptimize(usedItems(machine.recentlyUsed, {}, machine.index, 0));
    state.SetItemsProcessed(state.iterations() * bookmarkCount);
}
BENCHMARK(recentlyUsedInBackground)->Unit(benchmark::kMillisecond);

/// The parser alone, which does nothing with what it reads.
void recentlyUsedParserAlone(benchmark::State& state)
{
    auto& machine = Machine::shared();
    for (auto _ : state) {
        GMarkupParser const nothing {};
        auto* const context = g_markup_parse_context_new(&nothing, G_MARKUP_PREFIX_ERROR_POSITION, nullptr, nullptr);
        benchmark::DoNotOptimize(readInPieces(machine.recentlyUsed,
            [&](std::string_view piece) { return g_markup_parse_context_parse(context, piece.data(), static_cast<gssize>(piece.size()), nullptr) != FALSE; }));
        g_markup_parse_context_free(context);
    }
    state.SetItemsProcessed(state.iterations() * bookmarkCount);
}
BENCHMARK(recentlyUsedParserAlone)->Unit(benchmark::kMillisecond);

void applicationEntriesInBackground(benchmark::State& state)
{
    auto const folder = Machine::shared().disk.path("applications");
    for (auto _ : state)
        benchmark::DoNotOptimize(ApplicationIndex::read({ folder }));
    state.SetItemsProcessed(state.iterations() * applicationCount);
}
BENCHMARK(applicationEntriesInBackground)->Unit(benchmark::kMillisecond);

void addressesInBackground(benchmark::State& state)
{
    fakes::FakeTime time;
    SystemNetworkInterfaces interfaces(time, "");
    ListsFixture lists;
    for (auto _ : state) {
        interfaces.list([&](auto addresses) {
            lists.networkInterfaces.addresses = std::move(addresses);
            benchmark::DoNotOptimize(lists.entries(MenuItemKind::ipAddress));
        });
        time.runTasks();
    }
}
BENCHMARK(addressesInBackground)->Unit(benchmark::kMillisecond);

void runningApplicationsOnMain(benchmark::State& state)
{
    auto& machine = Machine::shared();
    ListsFixture lists;
    for (auto _ : state) {
        std::vector<RunningApplication> applications;
        for (auto const& window : machine.windows)
            applications.push_back(applicationOf(window, machine.index));
        lists.runningApplications.applications = std::move(applications);
        benchmark::DoNotOptimize(lists.entries(MenuItemKind::runningApplications));
    }
}
BENCHMARK(runningApplicationsOnMain)->Unit(benchmark::kMillisecond);

void freshIndexOnMain(benchmark::State& state)
{
    auto const& index = Machine::shared().index;
    for (auto _ : state)
        benchmark::DoNotOptimize(index.isCurrent());
}
BENCHMARK(freshIndexOnMain)->Unit(benchmark::kMillisecond);

void volumesOnMain(benchmark::State& state)
{
    auto& machine = Machine::shared();
    ListsFixture lists;
    for (auto _ : state) {
        lists.volumes.volumes = userVolumes(MountTable(machine.mountInfo), readDeviceLabels("/dev/disk/by-label"));
        benchmark::DoNotOptimize(lists.entries(MenuItemKind::mountedVolumes));
    }
}
BENCHMARK(volumesOnMain)->Unit(benchmark::kMillisecond);

void thisMachinesVolumesOnMain(benchmark::State& state)
{
    ListsFixture lists;
    for (auto _ : state) {
        lists.volumes.volumes = userVolumes(MountTable::current(), readDeviceLabels("/dev/disk/by-label"));
        benchmark::DoNotOptimize(lists.entries(MenuItemKind::mountedVolumes));
    }
}
BENCHMARK(thisMachinesVolumesOnMain)->Unit(benchmark::kMillisecond);

void settingsPanesOnMain(benchmark::State& state)
{
    auto& machine = Machine::shared();
    ListsFixture lists;
    for (auto _ : state) {
        lists.settingsPanes.panes = settingsPanesIn(machine.index);
        benchmark::DoNotOptimize(lists.entries(MenuItemKind::systemPrefs));
    }
}
BENCHMARK(settingsPanesOnMain)->Unit(benchmark::kMillisecond);

/// A menu of 250 entries before it is on screen, without any picture drawn yet.
void coldIconsBeforeFirstPaintOnMain(benchmark::State& state)
{
    auto& machine = Machine::shared();
    fakes::FakeTime time;
    DynamicMenuProvider const noLists;
    for (auto _ : state) {
        ThemeIconSource source(time, time);
        MenuIcon icons(source, noLists, Url::fromPath("/items"), [] { return true; });
        for (auto const& file : machine.files)
            benchmark::DoNotOptimize(isMenuIconReady(icons.iconForFile(Url::fromPath(file))));
    }
}
BENCHMARK(coldIconsBeforeFirstPaintOnMain)->Unit(benchmark::kMillisecond);

/// The same with pictures drawn in an earlier menu.
void warmIconsBeforeFirstPaintOnMain(benchmark::State& state)
{
    auto& machine = Machine::shared();
    fakes::FakeTime time;
    ThemeIconSource source(time, time);
    for (auto const& file : machine.files)
        (void)menuIconOf(source.fileIcon(Url::fromPath(file)));
    DynamicMenuProvider const noLists;
    for (auto _ : state) {
        MenuIcon icons(source, noLists, Url::fromPath("/items"), [] { return true; });
        for (auto const& file : machine.files) {
            auto const image = icons.iconForFile(Url::fromPath(file));
            if (isMenuIconReady(image))
                benchmark::DoNotOptimize(menuIconOf(image));
        }
    }
}
BENCHMARK(warmIconsBeforeFirstPaintOnMain)->Unit(benchmark::kMillisecond);

/// Fetching all pictures, which an open menu does in slices.
void coldIconsAfterFirstPaint(benchmark::State& state)
{
    auto& machine = Machine::shared();
    fakes::FakeTime time;
    for (auto _ : state) {
        ThemeIconSource source(time, time);
        for (auto const& file : machine.files)
            benchmark::DoNotOptimize(menuIconOf(source.fileIcon(Url::fromPath(file))));
    }
}
BENCHMARK(coldIconsAfterFirstPaint)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    zv::markMainThread();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication const application(argc, argv);
    zv::adoptDesktopIconTheme({}, zv::IconThemeOf::toolkit, false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
