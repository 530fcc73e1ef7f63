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
#include "tests/fakes/FakeSystem.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>

#include <filesystem>
#include <fstream>

using namespace zv;

namespace {

/// The editor over a menu of files, a title of 10,000 characters among them, on the real disk.
class Editor {
public:
    Editor(std::filesystem::path const& folder, std::size_t count)
        : m_defaults((folder / ("settings " + std::to_string(count) + ".plist")).string())
    {
        m_store.setItemsSink(&m_hotkeys);
        m_store.replaceAll(menuOf(folder, count));
        m_view.resize(900, 640);
        m_view.show();
        for (auto* tree : m_view.findChildren<QTreeView*>()) {
            if (tree->accessibleName() == QStringLiteral("Menu"))
                m_outline = tree;
        }
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
        m_models.editor().setTitle(m_store.items().front().id, "Title " + std::to_string(++m_changes));
        QApplication::processEvents();
    }
    void save() { m_store.save(); }
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
    MenuIcon m_icons { m_themeIcons, m_lists, Url::fromPath("/") };
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

} // namespace

int main(int argc, char** argv)
{
    markMainThread();
    qputenv("QT_QPA_PLATFORM", "offscreen");
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
        compare("change an item, to the picture of it", large, small, 2, [](Editor& editor) { editor.change(); });
        compare("of that, saving the menu", large, small, 2, [](Editor& editor) { editor.save(); });
    }
    for (std::size_t const count : { 10, 100, 1'000, 10'000 }) {
        Editor editor(folder, count);
        Editor smallest(folder, 10);
        bench::cell(
            "a change in the editor, to its picture", count, "the same with 10", [&] { editor.change(); }, [&] { smallest.change(); });
    }
    std::filesystem::remove_all(folder);
}
