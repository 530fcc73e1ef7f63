#include "app/hotkeys/HotkeyCenter.h"
#include "app/hotkeys/HotkeyPrescan.h"
#include "base/MainThread.h"
#include "bench/Ratio.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/files/LinuxFolderReader.h"
#include "platform/linux/hotkeys/XcbHotkeyRegistrar.h"
#include "platform/linux/hotkeys/XkbKeyboardLayoutSource.h"
#include "platform/linux/toolkit/QtTasks.h"
#include "platform/linux/toolkit/QtTimers.h"
#include "tests/desktop/PrivateX.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <benchmark/benchmark.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <thread>

/// Measurements of ours against bare ones, by turns.
namespace zv {
namespace {

constexpr int shortcutCount = 1000;
constexpr int firstPassCount = 252; ///< four sets of modifiers: what the server takes for a grab grows with those that it has
constexpr int firstPassRounds = 5;

/// Shortcuts of 16 sets of modifiers on some seventy keys.
std::vector<KeyEquivalentSpec> manyShortcuts(std::size_t count)
{
    static constexpr std::string_view keys = "abcdefghijklmnopqrstuvwxyz0123456789-=[];',./`\\";
    static constexpr std::string_view named[] = { "f1", "f2", "f3", "f4", "f5", "f6", "f7", "f8", "f9", "f10", "f11", "f12", "f13", "f14", "f15", "esc" };
    std::vector<KeyEquivalentSpec::Trigger> triggers;
    for (auto const key : keys)
        triggers.push_back(KeyEquivalentSpec::Trigger::character({ &key, 1 }));
    for (auto const name : named)
        triggers.push_back(KeyEquivalentSpec::Trigger::named(name));
    std::vector<KeyEquivalentSpec> specs;
    for (unsigned modifiers = 0; modifiers < 16; ++modifiers) {
        for (auto const& trigger : triggers)
            specs.push_back({ trigger, (modifiers & 1) != 0, (modifiers & 2) != 0, (modifiers & 4) != 0, (modifiers & 8) != 0 });
    }
    specs.resize(count);
    return specs;
}

/// The program's hotkeys on a server of their own.
struct Hotkeys {
    explicit Hotkeys(std::size_t count = shortcutCount)
        : connection(X11Connection::open())
        , keyboard(*connection, XkbExtension::setUp(*connection).value(), timers)
        , registrar(*connection, keyboard, timers)
        , layout(keyboard, notifications)
        , center(registrar, layout)
    {
        for (auto const& spec : manyShortcuts(count)) {
            items.push_back(MenuItem::ofKind(MenuItemKind::sleep));
            items.back().keyEquivalent = spec;
        }
        center.setMenuItems(items);
    }

    desktop::PrivateX server;
    QtTimers timers;
    std::unique_ptr<X11Connection> connection;
    XkbKeyboardLayoutSource keyboard;
    XcbHotkeyRegistrar registrar;
    Notifications notifications;
    KeyboardLayout layout;
    std::vector<MenuItem> items;
    HotkeyCenter center;
};

/// Grabs 63 keys with four modifier sets and four lock states, as the program does:
/// every request before the first answer.
void grabAll(desktop::XClient const& client)
{
    std::vector<xcb_void_cookie_t> cookies;
    static constexpr std::uint16_t bits[] = { XCB_MOD_MASK_SHIFT, XCB_MOD_MASK_1, XCB_MOD_MASK_CONTROL, XCB_MOD_MASK_4 };
    static constexpr std::uint16_t locks[] = { 0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2 };
    for (int i = 0; i < firstPassCount; ++i) {
        std::uint16_t modifiers = 0;
        for (unsigned bit = 0; bit < 4; ++bit)
            modifiers |= (i / 63) >> bit & 1 ? bits[bit] : 0;
        for (auto const lock : locks)
            cookies.push_back(xcb_grab_key_checked(
                client.xcb(), 0, client.root(), modifiers | lock, static_cast<std::uint8_t>(9 + i % 63), XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    for (auto const cookie : cookies)
        std::free(xcb_request_check(client.xcb(), cookie));
}

void ungrabAll(desktop::XClient const& client)
{
    xcb_ungrab_key(client.xcb(), XCB_GRAB_ANY, client.root(), XCB_MOD_MASK_ANY);
    client.sync();
}

/// The first pass: at most 1.2 times the bare grabs. Each has a server of its own.
void compareFirstPass()
{
    desktop::PrivateX const bareServer;
    desktop::XClient const client;
    Hotkeys hotkeys(firstPassCount);
    auto const release = [&] {
        hotkeys.center.unregisterAll();
        std::free(xcb_get_input_focus_reply(hotkeys.connection->get(), xcb_get_input_focus(hotkeys.connection->get()), nullptr));
    };
    hotkeys.center.reregister();
    if (hotkeys.center.registrations().size() != firstPassCount)
        std::printf("not all shortcuts were registered\n");
    release();
    bench::wallRatio("first pass, a shortcut, against bare grabs", firstPassCount, bench::Side { [&] { hotkeys.center.reregister(); }, release },
        bench::Side { [&] { grabAll(client); }, [&] { ungrabAll(client); } }, firstPassRounds);
}

/// A change of the menu that leaves its shortcuts as they are, and a whole pass that finds all as it was, against a look
/// into a table for each. Neither asks the server anything.
void compareUnchangedPasses()
{
    for (std::size_t const count : { 10, 100, shortcutCount }) {
        Hotkeys hotkeys(count);
        hotkeys.center.reregister();
        std::map<KeyChord, HotkeyID> held;
        for (std::size_t i = 0; i < count; ++i)
            held[{ static_cast<std::uint16_t>(i % 63), static_cast<std::uint32_t>(i / 63) }] = static_cast<HotkeyID>(i);
        auto const look = [&] {
            for (auto const& [chord, id] : held)
                benchmark::DoNotOptimize(held.find(chord));
        };
        auto const before = xcb_no_operation(hotkeys.connection->get()).sequence;
        bench::cell(
            "hotkeys after a change that leaves them", count, "a look into a table each", [&] { hotkeys.center.menuItemsChanged(hotkeys.items); }, look);
        bench::cell(
            "an unchanged hotkey pass", count, "a look into a table each", [&] { hotkeys.center.reregister(); }, look);
        if (xcb_no_operation(hotkeys.connection->get()).sequence != before + 1)
            std::printf("an unchanged pass asked the server\n");
    }
}

/// Handles all events that arrive within that time.
void turn(std::chrono::milliseconds time = std::chrono::milliseconds(5))
{
    for (auto const end = std::chrono::steady_clock::now() + time; std::chrono::steady_clock::now() < end;)
        QCoreApplication::processEvents();
}

constexpr std::uint8_t f1 = 67, home = 110, super = 133;

/// From the press of Super and F1, by raw key codes, to the action, against a client that
/// only has this grab and waits for its event. Below 2 ms.
void comparePressToAction()
{
    Hotkeys hotkeys;
    hotkeys.center.reregister();
    desktop::XClient const user;
    desktop::XClient const bare;
    bare.grab(home, XCB_MOD_MASK_4);
    bool isDone = false;
    hotkeys.center.onTrigger = [&](HotkeyTarget const&) { isDone = true; };
    auto const act = [&] {
        isDone = false;
        user.press(super);
        user.press(f1);
        while (!isDone)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    auto const letGo = [&] {
        user.release(f1);
        user.release(super);
        turn(std::chrono::milliseconds(70)); // a press before the release was seen counts as a repeat
    };
    auto const release = [&] {
        user.release(home);
        user.release(super);
    };
    auto const isPress = [](xcb_generic_event_t const* event) { return event && (event->response_type & 0x7F) == XCB_KEY_PRESS; };
    auto const hear = [&] {
        user.press(super);
        user.press(home);
        for (bool heard = false; !heard;) {
            auto* const event = xcb_wait_for_event(bare.xcb());
            heard = isPress(event);
            std::free(event);
        }
    };
    bench::wallRatio("press to action, against a bare client", 1, bench::Side { act, letGo }, bench::Side { hear, release }, 51);
}

double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

/// Five seconds without events.
void idle(benchmark::State& state)
{
    Hotkeys hotkeys;
    hotkeys.center.reregister();
    for (auto unused : state) {
        bool isOver = false;
        turn();
        auto const timer = hotkeys.timers.after(std::chrono::seconds(5), [&] { isOver = true; });
        auto const before = processorSeconds();
        int wakeups = 0;
        for (; !isOver; ++wakeups)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        state.counters["cpu_percent"] = (processorSeconds() - before) / 5 * 100;
        state.counters["wakeups"] = wakeups;
    }
}
BENCHMARK(idle)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(1);

/// 1,999 folders of 20 files below one, each with one shortcut.
struct Tree {
    Tree()
    {
        std::string pattern = std::filesystem::temp_directory_path() / "zv-bench-XXXXXX";
        root = mkdtemp(pattern.data());
        for (int folder = 1; folder < 2000; ++folder) {
            auto const path = root + "/folder " + std::to_string(folder / 45) + "/sub " + std::to_string(folder);
            std::filesystem::create_directories(path);
            for (int file = 0; file < 19; ++file)
                std::ofstream(path + "/document number " + std::to_string(file) + ".txt");
            std::ofstream(path + "/shortcut-*[cmd+F5]*.txt");
        }
    }
    ~Tree() { std::filesystem::remove_all(root); }
    std::string root;
};

Tree const& tree()
{
    static Tree const one;
    return one;
}

/// The scan for shortcuts: faster than `find`.
void comparePrescan()
{
    LinuxFileSystem const files;
    LinuxFolderReader const reader { DesktopAudience { userLanguages(), {} } };
    std::vector const roots { Url::fromPath(tree().root) };
    auto const command = "find '" + tree().root + "' > /dev/null";
    std::size_t folders = 0;
    int status = 0;
    auto const nothing = [] {};
    bench::wallRatio("scan of 2,000 folders of 20 files, against find", 1,
        bench::Side { [&] { folders = prescanHotkeys(reader, files, roots, 3, HiddenFiles::skipped).size(); }, nothing },
        bench::Side { [&] { status = std::system(command.c_str()); }, nothing });
    if (folders != maximumPrescannedFolders || status != 0)
        std::printf("it looked into %zu folders; find ended with %d\n", folders, status);
}

} // namespace
} // namespace zv

int main(int argc, char** argv)
{
    zv::markMainThread();
    QCoreApplication const application(argc, argv);
    zv::compareUnchangedPasses();
    zv::compareFirstPass();
    zv::comparePressToAction();
    zv::comparePrescan();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
