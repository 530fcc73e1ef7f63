// The menu editor with 10,000 items against 100: the time a person waits must hardly grow
// with the menu.

#include "app/menu/DynamicMenuProvider.h"
#include "app/menu/MenuIcon.h"
#include "app/settings/SettingsModels.h"
#include "base/MainThread.h"
#include "bench/Ratio.h"
#include "platform/linux/files/LinuxBookmarks.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/icons/ThemeIconSource.h"
#include "platform/linux/settings/MenuEditorView.h"
#include "platform/linux/store/PlistUserDefaults.h"
#include "platform/linux/toolkit/QtTasks.h"
#include "tests/fakes/FakeSystem.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>

#include <filesystem>
#include <fstream>

using namespace zv;

namespace {

/// Notes that a widget was painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(bool& isPainted)
        : m_isPainted(isPainted)
    {
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_isPainted = m_isPainted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool& m_isPainted;
};

/// The editor over a menu of files, a title of 10,000 characters among them, on the real disk.
class Editor {
public:
    Editor(std::filesystem::path const& folder, std::size_t count)
        : m_defaults((folder / ("settings " + std::to_string(count) + ".plist")).string())
    {
        m_defaults.useTasks(m_tasks);
        m_store.setItemsSink(&m_hotkeys);
        m_store.replaceAll(menuOf(folder, count));
        m_view.resize(900, 640);
        m_view.show();
        for (auto* tree : m_view.findChildren<QTreeView*>()) {
            if (tree->accessibleName() == QStringLiteral("Menu"))
                m_outline = tree;
        }
        m_outline->viewport()->installEventFilter(&m_paintWatch);
        m_outline->setCurrentIndex(m_outline->model()->index(0, 0));
        for (auto* field : m_view.findChildren<QLineEdit*>()) {
            if (field->placeholderText() != QStringLiteral("Search"))
                m_title = field;
        }
        QApplication::processEvents();
    }
    ~Editor() { m_store.setItemsSink(nullptr); }
    Editor(Editor const&) = delete;
    Editor& operator=(Editor const&) = delete;

    void change() // one edit, up to its picture
    {
        m_isPainted = false;
        m_models.editor().setTitle(m_store.items().front().id, "Title " + std::to_string(++m_changes));
        while (!m_isPainted)
            QApplication::processEvents();
    }
    void finish() // what the change left to other threads
    {
        m_defaults.writeUnsaved();
        QApplication::processEvents();
    }
    void type() // a letter in the title field, without the pause after it
    {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
        QApplication::sendEvent(m_title, &press);
        QApplication::processEvents();
    }
    void scroll() // a page on, painted
    {
        auto* bar = m_outline->verticalScrollBar();
        bar->setValue(bar->value() + bar->pageStep() < bar->maximum() ? bar->value() + bar->pageStep() : 0);
        QApplication::processEvents();
    }
    void repaint() { (void)m_outline->grab(); }

private:
    static std::vector<MenuItem> menuOf(std::filesystem::path const& folder, std::size_t count)
    {
        LinuxFileSystem files;
        LinuxBookmarks bookmarks;
        LocationServices const services { files, bookmarks };
        auto const location = ItemLocation::forURL(Url::fromPath((folder / "Some Application.desktop").string()), services);
        std::vector<MenuItem> items;
        for (std::size_t i = 0; i < count; ++i) {
            auto item = MenuItem::ofKind(MenuItemKind::fsObject);
            item.title = i == 1 ? std::string(10'000, 'M') : "Some Application " + std::to_string(i);
            item.location = location;
            item.keyEquivalent = KeyEquivalentSpec { KeyEquivalentSpec::Trigger::character(std::string(1, static_cast<char>('A' + i % 26))) };
            items.push_back(std::move(item));
        }
        return items;
    }

    /// A machine in memory but for its disk and its settings.
    System system()
    {
        auto const others = m_machine.system();
        return { .kind = SystemKind::linuxDesktop,
            .files = { .defaults = m_defaults,
                .resources = m_machine.resources,
                .disk = m_files,
                .bookmarks = m_bookmarks,
                .aliases = m_machine.aliases,
                .folders = m_machine.folders },
            .time = others.time,
            .lists = others.lists,
            .session = others.session,
            .places = others.places };
    }

    std::shared_ptr<LinuxFileSystem> m_files = std::make_shared<LinuxFileSystem>();
    LinuxBookmarks m_bookmarks;
    LocationServices m_locations { *m_files, m_bookmarks };
    QtTasks m_tasks;
    PlistUserDefaults m_defaults;
    fakes::FakeSystem m_machine;
    fakes::FakeSurface m_screen;
    System m_system = system();
    Surface m_surface = m_screen.surface();
    MenuStore m_store { { m_defaults, m_machine.resources, m_locations } };
    Preferences m_preferences { m_defaults };
    MenuShortcut m_menuShortcut { m_defaults };
    Notifications m_notifications;
    KeyboardLayout m_layout { m_screen.keyboardLayout, m_notifications };
    HotkeyCenter m_hotkeys { m_screen.hotkeys, m_layout };
    MenuBackups m_backups { { *m_files, m_machine.time }, Url::fromPath("/nonexistent") };
    LoginItem m_loginItem { m_screen.loginService };
    KresUpdater m_updater { { m_machine.resources, { m_screen.notifications, m_screen.application, m_machine.resources }, m_surface.home.makeUpdateEngine } };
    ThemeIconSource m_themeIcons { m_machine.time, m_machine.time };
    DynamicMenuProvider m_lists;
    MenuIcon m_icons { m_themeIcons, m_lists, Url::fromPath("/"), [] { return true; } };
    SettingsModels m_models { { .system = m_system,
        .surface = m_surface,
        .store = m_store,
        .preferences = m_preferences,
        .menuShortcut = m_menuShortcut,
        .hotkeys = m_hotkeys,
        .backups = m_backups,
        .loginItem = m_loginItem,
        .updater = m_updater,
        .icons = m_icons,
        .overlayProblem = {},
        .fileWasRenamed = [](Url const&) {},
        .showReadMe = [] {},
        .openSettingsPane = [](std::string_view) {} } };
    MenuEditorView m_view { m_models, {} };
    QTreeView* m_outline = nullptr;
    QLineEdit* m_title = nullptr;
    int m_changes = 0;
    bool m_isPainted = false;
    PaintWatch m_paintWatch { m_isPainted };
};

template <class Step> void compare(char const* name, Editor& large, Editor& small, int times, Step step)
{
    auto const repeat = [&](Editor& editor) {
        for (int i = 0; i < times; ++i)
            step(editor);
    };
    bench::ratio(
        std::string(name) + " (10,000 items, 100 items)", static_cast<std::size_t>(times), [&] { repeat(large); }, [&] { repeat(small); });
}

/// How long the program cannot be used, and what the change takes in all, on every thread.
void compareChanges(std::filesystem::path const& folder, std::size_t count)
{
    static constexpr auto peer = "the same with 10";
    static constexpr int times = 25;
    Editor editor(folder, count);
    Editor smallest(folder, 10);
    auto const size = std::to_string(count);
    auto const busy = bench::wallRatio("a change in the editor, " + size, 1, bench::Side { [&] { editor.change(); }, [&] { editor.finish(); } },
        bench::Side { [&] { smallest.change(); }, [&] { smallest.finish(); } }, times);
    bench::note("a change in the editor, to its picture", count, busy, peer);
    auto const whole = [](Editor& each) {
        return [&each] {
            each.change();
            each.finish();
        };
    };
    bench::note("of a change in the editor, all threads’ work", count, bench::ratio("that, all threads, " + size, 1, whole(editor), whole(smallest)), peer);
}

} // namespace

int main(int argc, char** argv)
{
    markMainThread();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0"); // paints as soon as there is something to paint
    QApplication const application(argc, argv);
    auto const folder = std::filesystem::temp_directory_path() / "zv-settings-bench";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "Some Application.desktop") << "[Desktop Entry]\n";
    {
        Editor large(folder, 10'000);
        Editor small(folder, 100);
        compare("scroll by a page", large, small, 20, [](Editor& editor) { editor.scroll(); });
        compare("paint the outline", large, small, 20, [](Editor& editor) { editor.repaint(); });
        compare("type a letter of a title", large, small, 20, [](Editor& editor) { editor.type(); });
    }
    for (std::size_t const count : { 10, 100, 1'000, 10'000 })
        compareChanges(folder, count);
    std::filesystem::remove_all(folder);
}
