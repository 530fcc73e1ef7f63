#include "platform/linux/settings/MenuEditorView.h"

#include "app/shell/ZantheVellApp.h"
#include "tests/fakes/FakeSystem.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTest>

#include <gtest/gtest.h>

namespace zv {
namespace {

/// The Menu tab over the whole program in memory. A menu is written as "a b[c d]": a submenu for a letter before a bracket.
struct MenuEditorViewTest : testing::Test {
    MenuEditorViewTest()
    {
        ensureApplication();
        app.emplace(machine.system(), front.surface());
        (void)app->launch();
        view.emplace(app->settingsModels(), KeyLookup {});
        for (auto* tree : view->findChildren<QTreeView*>())
            outline = tree->header()->isVisibleTo(tree) ? tree : outline;
        view->show();
    }

    static std::vector<MenuItem> parse(char const*& text)
    {
        std::vector<MenuItem> items;
        for (; *text != '\0' && *text != ']'; ++text) {
            if (*text == '[') {
                items.back().kind = MenuItemKind::submenu;
                items.back().children = parse(++text);
            } else if (*text != ' ') {
                items.push_back(MenuItem::ofKind(MenuItemKind::sleep));
                items.back().id = idOf(*text);
                items.back().title = std::string(1, *text);
            }
        }
        return items;
    }
    static Uuid idOf(char name) { return *Uuid::parse("00000000-0000-0000-0000-0000000000" + std::to_string(static_cast<int>(name) % 90 + 10)); }
    void setMenu(char const* text)
    {
        app->delegate().store().replaceAll(parse(text));
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QModelIndex row(char name, QModelIndex const& parent = {}) const
    {
        for (int i = 0; i < outline->model()->rowCount(parent); ++i) {
            auto const index = outline->model()->index(i, 0, parent);
            if (index.data().toString() == QLatin1Char(name))
                return index;
            if (auto const below = row(name, index); below.isValid())
                return below;
        }
        return {};
    }
    void select(std::string const& names)
    {
        outline->clearSelection();
        for (char const name : names) {
            outline->selectionModel()->select(row(name), QItemSelectionModel::Select | QItemSelectionModel::Rows);
            outline->selectionModel()->setCurrentIndex(row(name), QItemSelectionModel::NoUpdate);
        }
    }
    /// As "a b{c d}" for open rows, "!" behind what is selected.
    [[nodiscard]] std::string shown(QModelIndex const& parent = {}) const
    {
        std::string text;
        for (int i = 0; i < outline->model()->rowCount(parent); ++i) {
            auto const index = outline->model()->index(i, 0, parent);
            text += (text.empty() ? "" : " ") + index.data().toString().toStdString();
            text += outline->selectionModel()->isSelected(index) ? "!" : "";
            if (outline->model()->hasChildren(index))
                text += outline->isExpanded(index) ? "{" + shown(index) + "}" : "[" + shown(index) + "]";
        }
        return text;
    }
    [[nodiscard]] QAction* action(char const* title) const
    {
        for (auto* each : view->findChildren<QAction*>()) {
            if (each->text().startsWith(QString::fromUtf8(title)))
                return each;
        }
        return nullptr;
    }
    void trigger(char const* title) const
    {
        action(title)->trigger();
        QCoreApplication::processEvents();
    }

    fakes::FakeSystem machine;
    fakes::FakeSurface front;
    std::optional<ZantheVellApp> app;
    std::optional<MenuEditorView> view;
    QTreeView* outline = nullptr;
};

TEST_F(MenuEditorViewTest, KeepsWhatIsOpenAndSelectedOverEveryEdit)
{
    struct Row {
        char const *before, *open, *selected, *action, *after, *undone;
    };
    Row const rows[] = {
        { "a b[c d] e[]", "b", "c", settingsTexts::moveDown.english, "a b{d c!} e[]", "a b{c! d} e[]" },
        { "a b[c d] e[]", "be", "a", settingsTexts::moveDown.english, "b{c d} a! e{}", "a! b{c d} e{}" },
        { "a b[c d] e", "b", "d", settingsTexts::deleteSelected.english, "a b{c!} e", "a b{c d!} e" },
        { "a b[c d] e", "b", "ae", settingsTexts::deleteSelected.english, "b!{c d}", "a! b{c d} e!" },
        { "a b[c d] e", "b", "a", settingsTexts::duplicate.english, "a a! b{c d} e", "a! b{c d} e" },
        { "a b[c] d e f", "b", "fe", settingsTexts::moveUp.english, "a b{c} e! f! d", "a b{c} d e! f!" },
    };
    for (auto const& each : rows) {
        SCOPED_TRACE(std::string(each.action) + " " + each.selected);
        setMenu("");
        setMenu(each.before);
        for (char const* open = each.open; *open; ++open)
            outline->expand(row(*open));
        select(each.selected);
        trigger(each.action);
        EXPECT_EQ(shown(), each.after);
        trigger("Undo");
        EXPECT_EQ(shown(), each.undone);
        trigger("Redo");
        EXPECT_EQ(shown().size(), std::string(each.after).size());
    }
    setMenu("a b[c[x] d] e f g");
    outline->expandAll();
    select("x");
    setMenu("g d f[y b[c[x]]] a");
    EXPECT_EQ(shown(), "g d f{y b{c{x!}}} a") << "a change from outside";
}

TEST_F(MenuEditorViewTest, EnablesWhatTheSelectionAllows)
{
    struct Row {
        char const* selected;
        bool up, down, remove;
    };
    setMenu("a b[c] d");
    for (auto const& each :
        { Row { "", false, false, false }, Row { "a", false, true, true }, Row { "d", true, false, true }, Row { "c", false, false, true } }) {
        select(each.selected);
        EXPECT_EQ(action(settingsTexts::moveUp.english)->isEnabled(), each.up) << each.selected;
        EXPECT_EQ(action(settingsTexts::moveDown.english)->isEnabled(), each.down) << each.selected;
        EXPECT_EQ(action(settingsTexts::duplicate.english)->isEnabled(), each.remove) << each.selected;
    }
}

TEST_F(MenuEditorViewTest, FillsAnEmptySubmenuByTheKeyboard)
{
    setMenu("a b[]");
    select("b");
    QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
    QApplication::sendEvent(outline, &right);
    EXPECT_EQ(shown(), "a b!{}");
    trigger(settingsTexts::copy.english);
    trigger(settingsTexts::paste.english);
    EXPECT_EQ(shown(), "a b{b![]}");
}

TEST_F(MenuEditorViewTest, DoesForEveryKeyWhatItsMenuSays)
{
    auto const actions = view->findChildren<QAction*>();
    QString done;
    for (auto* each : actions)
        QObject::connect(each, &QAction::triggered, &*view, [&done, each] { done = each->text(); });
    QApplication::setActiveWindow(&*view);
    for (auto* each : actions) {
        for (auto const& key : each->shortcuts()) {
            setMenu("a b c");
            select("b");
            outline->setFocus();
            each->setEnabled(true);
            done.clear();
            QTest::keySequence(outline, key);
            EXPECT_EQ(done, each->text()) << key.toString().toStdString();
        }
    }
}

} // namespace
} // namespace zv
