#undef QT_NO_CAST_FROM_ASCII // plain literals keep the tables readable

#include "platform/linux/menu/MenuWindow.h"

#include "app/menu/EntryMenus.h"
#include "platform/linux/icons/ThemeImage.h"
#include "platform/linux/menu/MenuAccessibility.h"
#include "platform/linux/menu/MenuStyle.h"
#include "tests/linux/menu/FillingMenu.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QAccessible>
#include <QDeadlineTimer>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPixmap>
#include <QScreen>
#include <QStyleOptionMenuItem>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace zv {
namespace {

QStringList titles(QMenu const& menu)
{
    QStringList all;
    for (auto const* action : menu.actions()) {
        if (action->isVisible())
            all.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    }
    return all;
}

struct SlowImage : ThemeImage {
    std::string name() const override { return "slow"; }
    bool isReady() const override { return false; }
    QIcon icon() const override
    {
        ++fetched;
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::red);
        return QIcon(pixmap);
    }
    mutable int fetched = 0;
};

struct ReadyImage : ThemeImage {
    std::string name() const override { return "ready"; }
    bool isReady() const override { return true; }
    QIcon icon() const override { return kept.isNull() ? kept = QIcon(pixmap) : kept; }
    QPixmap pixmap { 16, 16 };
    mutable QIcon kept;
};

struct CountingStyle : MenuStyle {
    void drawControl(ControlElement element, QStyleOption const* option, QPainter* painter, QWidget const* widget) const override
    {
        ++drawn;
        MenuStyle::drawControl(element, option, painter, widget);
    }
    mutable int drawn = 0;
};

/// A menu window that shows the test its texts and its picture.
struct SeenWindow : MenuWindow {
    using MenuWindow::MenuWindow;
    QString drawnText(int index)
    {
        QStyleOptionMenuItem option;
        initStyleOption(&option, actions()[index]);
        return option.text;
    }
    /// The window's picture on screen.
    QImage shown() { return screen()->grabWindow(winId()).toImage(); }
};

class MenuWindowTest : public testing::Test {
protected:
    void SetUp() override
    {
        ensureApplication();
        style = new CountingStyle;
        qApp->setStyle(style);
        window = std::make_unique<SeenWindow>(nullptr);
        window->readKey = [](QKeyEvent const& event) {
            std::pair<Qt::KeyboardModifier, ModifierMask> const table[] = { { Qt::ShiftModifier, ModifierMask::shift },
                { Qt::ControlModifier, ModifierMask::control }, { Qt::AltModifier, ModifierMask::option }, { Qt::MetaModifier, ModifierMask::command } };
            KeyPress read { 0, event.text().toStdString() };
            for (auto const& [held, mask] : table)
                read.modifiers |= event.modifiers() & held ? mask : ModifierMask::none;
            return read;
        };
        window->onChosen = [](std::shared_ptr<MenuActionTarget> target, Qt::KeyboardModifiers) { target->invoke(); };
    }
    void open(std::vector<MenuEntry> entries)
    {
        top = FillingMenu::make(std::move(entries));
        window->setMenu(top->menu);
        window->popup({ 10, 10 });
    }
    void closeAndForget()
    {
        window->close();
        window->forget();
        top = nullptr;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Lets the window paint.
    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QApplication::processEvents();
    }
    /// The entries' picture in a fresh window.
    QImage drawnAnew(std::shared_ptr<Menu> const& menu)
    {
        SeenWindow fresh(nullptr);
        auto const filling = FillingMenu::make(menu->entries);
        fresh.setMenu(filling->menu);
        fresh.popup({ 10, 10 });
        settle();
        return fresh.shown();
    }
    void press(int key, QString const& text = {}, Qt::KeyboardModifiers modifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(QApplication::activePopupWidget() ? QApplication::activePopupWidget() : window.get(), &event);
    }
    void type(QString const& text)
    {
        for (auto const character : text)
            press(0, QString(character));
    }
    QString current() { return window->activeAction() ? window->activeAction()->text() : QString(); }
    std::function<void()> note(std::string const& what)
    {
        return [this, what] { done.push_back(what); };
    }

    std::shared_ptr<FillingMenu> top;
    CountingStyle* style = nullptr;
    std::unique_ptr<SeenWindow> window;
    std::vector<std::string> done;
};

TEST_F(MenuWindowTest, MirrorsWhatTheMenuHoldsEachTimeItOpens)
{
    auto keys = leaf("Force Quit");
    keys.keyEquivalent = "e";
    keys.keyEquivalentModifierMask = ModifierMask::option | ModifierMask::command;
    auto hint = leaf("Notes");
    hint.attributedTitle = AttributedTitle { "Notes", true, "⌥⌘N", 100 };
    auto gone = MenuEntry::disabled("Gone");
    gone.toolTip = "<b>a file</b>";
    open({ leaf("R&D"), MenuEntry::separator(), keys, hint, gone });
    EXPECT_EQ(titles(*window), (QStringList { "R&&D", "-", "Force Quit", "Notes", "Gone" })) << "titles alone: assistive tools read them out";
    EXPECT_EQ(window->drawnText(2), "Force Quit\tAlt+Super+E");
    EXPECT_EQ(window->drawnText(3), "Notes\tAlt+Super+N");
    auto const actions = window->actions();
    EXPECT_TRUE(actions[3]->font().italic());
    EXPECT_FALSE(actions[2]->font().italic());
    EXPECT_FALSE(actions[4]->isEnabled());
    EXPECT_EQ(actions[4]->toolTip(), "<qt>&lt;b&gt;a file&lt;/b&gt;") << "never taken for markup";
    EXPECT_TRUE(actions[2]->shortcut().isEmpty()) << "no key works while the menu is closed";

    window->close();
    EXPECT_EQ(top->closings, 1);
    top->next = { leaf("Other") };
    window->popup({ 10, 10 });
    EXPECT_EQ(titles(*window), QStringList { "Other" });
    EXPECT_EQ(top->updates, 2);
}

TEST_F(MenuWindowTest, ASubmenuFillsWhenItOpensAndFollowsALaterFill)
{
    auto const sub = FillingMenu::make({ leaf("one") });
    open({ branch("Folder", sub) });
    EXPECT_EQ(sub->updates, 0);
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ(sub->updates, 1);
    auto* submenu = window->actions()[0]->menu();
    ASSERT_TRUE(submenu->isVisible());
    EXPECT_EQ(titles(*submenu), QStringList { "one" });

    sub->menu->entries.clear();
    for (int i = 0; i < 2000; ++i)
        sub->menu->entries.push_back(leaf("late " + std::to_string(i)));
    sub->menu->didRefill();
    EXPECT_TRUE(submenu->isVisible());
    EXPECT_EQ(submenu->actions().size(), 2000);
    EXPECT_LE(submenu->height(), window->screen()->geometry().height()) << "scrolls instead of growing off the screen";
    window->close();
    EXPECT_EQ(sub->closings, 1);
    sub->menu->didRefill();
    EXPECT_EQ(submenu->actions().size(), 2000) << "a closed menu follows nothing";
}

TEST_F(MenuWindowTest, AMenuThatGrewComesBackWhereItOpened)
{
    open({ leaf("one") });
    auto const screen = window->screen()->geometry();
    window->popup(screen.bottomRight() - QPoint(window->width() + 20, window->height() + 20));
    auto const place = window->pos();
    for (auto const more : { 9, 5, 0 }) {
        top->menu->entries.assign(1, leaf("one"));
        for (int i = 0; i < more; ++i)
            top->menu->entries.push_back(leaf("a much longer entry, number " + std::to_string(i)));
        top->menu->didRefill();
        EXPECT_EQ(window->pos() == place, more == 0) << more;
        EXPECT_TRUE(screen.contains(window->geometry())) << more;
    }
}

TEST_F(MenuWindowTest, ALateFillSelectsWhatAnEarlyOneWould)
{
    auto const sub = FillingMenu::make({ MenuEntry::disabled("Loading…") });
    open({ branch("Folder", sub) });
    auto const fillLater = [&](std::vector<MenuEntry> entries) {
        sub->menu->entries = std::move(entries);
        sub->menu->didRefill();
    };
    auto const selected = [&] {
        auto const* action = window->actions()[0]->menu()->activeAction();
        return action ? action->text() : QString();
    };
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ(selected(), "");
    fillLater({ MenuEntry::disabled("none"), leaf("one"), branch("two", FillingMenu::make({})) });
    EXPECT_EQ(selected(), "one") << "as a key opened it";
    press(Qt::Key_Down);
    fillLater({ leaf("zero"), leaf("one"), branch("two", FillingMenu::make({})), leaf("three") });
    EXPECT_EQ(selected(), "two") << "what was selected stays so";

    window->close();
    window->popup({ 10, 10 });
    window->setActiveAction(window->actions()[0]);
    fillLater({ leaf("one") });
    EXPECT_EQ(selected(), "") << "no key opened it";
}

TEST_F(MenuWindowTest, WhatASearchFindsStandsBelowUntilTheHandIsThere)
{
    MenuAccessibleParent const accessibleParent; // what it installs answers for entries
    open({ leaf("Tax office"), leaf("Other") });
    type("ta");
    auto const told = top->search.lock();
    EXPECT_EQ(told->asked, (std::vector<std::string> { "t 2", "ta 1" }));
    EXPECT_EQ(titles(*window), (QStringList { "ta", "Tax office" }));
    told->answer({ "syntax" }, false);
    EXPECT_EQ(titles(*window), (QStringList { "ta", "Tax office", "-", "syntax" }));
    EXPECT_EQ(current(), "Tax office") << "stays selected";
    auto const last = static_cast<int>(window->actions().size()) - 1;
    EXPECT_EQ(window->drawnText(last), "syntax\tWay ▸ syntax");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(window->actions()[last])->text(QAccessible::Name), "syntax, in Way");
    press(Qt::Key_Down);
    told->answer({ "Taxes", "syntax" }, true, note("Taxes"));
    EXPECT_EQ(current(), "syntax");
    EXPECT_EQ(titles(*window).size(), 4) << "nothing moves under the hand";

    type("xz");
    EXPECT_EQ(titles(*window), (QStringList { "taxz", "Searching…" }));
    told->answer({}, true);
    EXPECT_EQ(titles(*window), (QStringList { "taxz", "No Matches" }));
    press(Qt::Key_Backspace);
    told->answer({ "Taxes" }, true, note("Taxes"));
    EXPECT_EQ(titles(*window), (QStringList { "tax", "Tax office", "-", "Taxes" }));
    press(Qt::Key_Escape);
    EXPECT_EQ(titles(*window), (QStringList { "Tax office", "Other" })) << "the first Escape leaves the menu as it was";
    type("tax");
    told->answer({ "Taxes" }, true, note("Taxes"));
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(done, std::vector<std::string> { "Taxes" });
    EXPECT_EQ(told.use_count(), 1) << "closing ends the search";
}

TEST_F(MenuWindowTest, TypingFiltersEscapeClearsThenCloses)
{
    open({ leaf("Über uns", note("about")), MenuEntry::separator(), leaf("Settings", note("settings")), leaf("Restart", note("restart")) });
    type("UB");
    EXPECT_EQ(titles(*window), (QStringList { "UB", "Über uns" })) << "what was typed stands above what is left";
    EXPECT_EQ(current(), "Über uns");
    press(Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(titles(*window), (QStringList { "Über uns", "-", "Settings", "Restart" }));
    type("st");
    type("x");
    top->search.lock()->answer({}, true);
    EXPECT_EQ(titles(*window), (QStringList { "stx", "No Matches" }));
    press(Qt::Key_Backspace);
    EXPECT_EQ(titles(*window), (QStringList { "st", "Restart" }));
    press(Qt::Key_Return);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(done, std::vector<std::string> { "restart" });

    window->popup({ 10, 10 });
    EXPECT_EQ(titles(*window).size(), 4) << "the next opening starts afresh";
    press(Qt::Key_Down);
    press(Qt::Key_Space, " ");
    EXPECT_FALSE(window->isVisible()) << "Space chooses, as nothing was typed";
    EXPECT_EQ(done.back(), "about");
    window->popup({ 10, 10 });
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MenuWindowTest, KeysMoveAmongWhatCanBeChosen)
{
    std::vector<MenuEntry> entries { MenuEntry::disabled("not this") };
    for (int i = 0; i < 60; ++i)
        entries.push_back(leaf(std::to_string(i)));
    entries.push_back(MenuEntry::disabled("nor this"));
    open(entries);
    struct Row {
        int key;
        QString current;
    };
    Row const rows[] = {
        { Qt::Key_Down, "0" },
        { Qt::Key_End, "59" },
        { Qt::Key_PageDown, "59" }, // stays at the end
        { Qt::Key_Down, "0" }, // an arrow goes round
        { Qt::Key_PageUp, "0" },
        { Qt::Key_Up, "59" },
        { Qt::Key_Home, "0" },
    };
    for (auto const& row : rows) {
        press(row.key);
        EXPECT_EQ(current(), row.current);
    }
    press(Qt::Key_PageDown);
    EXPECT_GT(current().toInt(), 3);
    EXPECT_LT(current().toInt(), 59);
}

TEST_F(MenuWindowTest, WhatIsSelectedIsInSightHoweverItCameThere)
{
    std::vector<MenuEntry> entries;
    for (int i = 0; i < 200; ++i)
        entries.push_back(i % 7 == 0 ? MenuEntry::disabled("off") : leaf(std::to_string(i)));
    open(entries);
    auto const wheel = [this](int delta) {
        QPointF const middle = window->rect().center();
        QWheelEvent event(middle, window->mapToGlobal(middle), {}, { 0, delta }, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(window.get(), &event);
    };
    std::pair<char const*, std::function<void()>> const ways[] = {
        { "End", [&] { press(Qt::Key_End); } },
        { "Up", [&] { press(Qt::Key_Up); } },
        { "PageUp", [&] { press(Qt::Key_PageUp); } },
        { "the wheel, up", [&] { wheel(120); } },
        { "PageDown", [&] { press(Qt::Key_PageDown); } },
        { "Home", [&] { press(Qt::Key_Home); } },
        { "the wheel, down", [&] { wheel(-120); } },
        { "End again", [&] { press(Qt::Key_End); } },
        { "typing", [&] { type("19"); } },
        { "Escape", [&] { press(Qt::Key_Escape); } },
    };
    QString before;
    for (auto const& [way, act] : ways) {
        act();
        auto* active = window->activeAction();
        ASSERT_TRUE(active) << way;
        EXPECT_TRUE(window->sight().contains(window->actionGeometry(active).center())) << way << " " << active->text().toStdString();
        EXPECT_TRUE(std::exchange(before, current()) != current() || std::string_view(way) == "Escape") << way;
    }
}

TEST_F(MenuWindowTest, TheRightButtonChoosesNothing)
{
    open({ leaf("one", note("one")), leaf("two") });
    auto const click = [this](Qt::MouseButton button) {
        QPointF const place = window->actionGeometry(window->actions()[0]).center();
        for (auto const type : { QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease }) {
            QMouseEvent event(type, place, window->mapToGlobal(place), button, button, Qt::NoModifier);
            QApplication::sendEvent(window.get(), &event);
        }
    };
    press(Qt::Key_Down);
    click(Qt::RightButton);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(done, std::vector<std::string> {});
    click(Qt::LeftButton);
    EXPECT_EQ(done, std::vector<std::string> { "one" });
}

TEST_F(MenuWindowTest, AShortcutWorksInEveryOpenPopUp)
{
    auto shortcut = [this](std::string const& title, char const* key, ModifierMask mask) {
        auto entry = leaf(title, note(title));
        entry.keyEquivalent = key;
        entry.keyEquivalentModifierMask = mask;
        return entry;
    };
    auto off = shortcut("off", "o", ModifierMask::command);
    off.enabled = false;
    MenuEntry group;
    group.submenu = std::make_shared<Menu>();
    group.submenu->entries = { shortcut("grouped", "g", ModifierMask::command) };
    auto hinted = leaf("hinted", note("hinted"));
    hinted.attributedTitle = AttributedTitle { "hinted", false, "⌥⌘H", 100 };
    struct Row {
        QString keys; ///< pressed before, with the folder open at first
        std::vector<std::string> done;
        Qt::KeyboardModifiers modifiers;
        char const* why;
    };
    Row const rows[] = {
        { "x", { "top" }, Qt::MetaModifier, "of the menu below the open folder" },
        { "g", { "grouped" }, Qt::MetaModifier, "in a group that was never opened" },
        { "h", { "hinted" }, Qt::MetaModifier | Qt::AltModifier, "of a file on show" },
        { "s", { "shifted" }, Qt::ShiftModifier, "a letter with Shift" },
        { "ns", {}, Qt::ShiftModifier, "which is text once something was typed" },
        { "o", {}, Qt::MetaModifier, "not of what is switched off" },
        { "x", {}, Qt::ControlModifier, "not with another modifier" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        done.clear();
        open({ branch("Folder", FillingMenu::make({ hinted, leaf("none") })), shortcut("top", "x", ModifierMask::command), group,
            shortcut("shifted", "s", ModifierMask::shift), off });
        press(Qt::Key_Down);
        press(Qt::Key_Right);
        for (qsizetype i = 0; i < row.keys.size(); ++i)
            press(0, row.keys.mid(i, 1), i + 1 < row.keys.size() ? Qt::NoModifier : row.modifiers);
        EXPECT_EQ(done, row.done);
        EXPECT_EQ(window->isVisible(), row.done.empty());
        window->close();
    }
}

TEST_F(MenuWindowTest, LateNewsOfTheLastMenusEndDoesNotCloseTheNext)
{
    open({ leaf("one") });
    QEvent deactivated(QEvent::ApplicationDeactivate);
    QApplication::sendEvent(qApp, &deactivated);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(MenuWindowTest, AnEntryDeepDownIsChosenOnce)
{
    auto const inner = FillingMenu::make({ leaf("deep", note("deep")) });
    auto const outer = FillingMenu::make({ branch("inner", inner) });
    open({ branch("outer", outer) });
    for (int const key : { Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Return })
        press(key);
    EXPECT_EQ(done, std::vector<std::string> { "deep" });
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MenuWindowTest, PicturesThatAreNotAtHandComeAfterTheMenu)
{
    auto const image = std::make_shared<SlowImage>();
    auto entry = leaf("Pictured");
    entry.image = image;
    open({ entry });
    EXPECT_EQ(image->fetched, 0);
    EXPECT_FALSE(window->actions()[0]->icon().isNull()) << "its place is kept";
    ASSERT_TRUE(tests::turnUntil([&] { return image->fetched > 0; }));
    EXPECT_EQ(window->actions()[0]->icon().pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
}

TEST_F(MenuWindowTest, ForgettingLetsGoOfAllThatEntriesHold)
{
    auto entry = leaf("Held");
    entry.image = std::make_shared<SlowImage>();
    std::weak_ptr<MenuActionTarget> const target = entry.target;
    std::weak_ptr<Image const> const image = entry.image;
    auto sub = FillingMenu::make({ leaf("one") });
    std::weak_ptr<FillingMenu> const delegate = sub;
    open({ std::move(entry), branch("Folder", std::exchange(sub, nullptr)) });
    press(Qt::Key_End);
    press(Qt::Key_Right);
    ASSERT_TRUE(window->actions()[1]->menu()->isVisible());
    closeAndForget();
    EXPECT_TRUE(target.expired());
    EXPECT_TRUE(image.expired());
    EXPECT_TRUE(delegate.expired());

    open(std::vector<MenuEntry>(2000, leaf("one of many")));
    closeAndForget();
    EXPECT_TRUE(window->actions().isEmpty()) << "not kept for the next time, as too many";
}

TEST_F(MenuWindowTest, AnUnchangedMenuIsShownAsItWasAndAnyChangeIsSeen)
{
    auto pictured = [](QColor const& color) {
        auto image = std::make_shared<ReadyImage>();
        image->pixmap.fill(color);
        return image;
    };
    auto const red = pictured(Qt::red);
    auto const blue = pictured(Qt::blue);
    auto entries = [&](auto change) {
        std::vector<MenuEntry> all { leaf("one", note("one")), leaf("two"), MenuEntry::separator(), branch("Folder", FillingMenu::make({ leaf("x") })) };
        all[0].image = red;
        change(all);
        return all;
    };
    using Entries = std::vector<MenuEntry>;
    struct Row {
        char const* what;
        std::function<void(Entries&)> change;
        bool isDrawn;
    };
    Row const rows[] = {
        { "as it was", [](Entries&) {}, false },
        { "a title", [](Entries& all) { all[1].title = "other"; }, true },
        { "the same again", [](Entries& all) { all[1].title = "other"; }, false },
        { "one fewer, in other places", [](Entries& all) { all.erase(all.begin()); }, true },
        { "one more", [](Entries&) {}, true },
        { "a picture", [&](Entries& all) { all[0].image = blue; }, true },
        { "a mark", [](Entries& all) { all[0].isMarked = true; }, true },
        { "a disabled one", [](Entries& all) { all[0].enabled = false; }, true },
        { "a shortcut", [](Entries& all) { all[0].keyEquivalent = "x"; }, true },
        { "italics",
            [](Entries& all) {
                all[0].attributedTitle = AttributedTitle { "one", true, "", 0 };
            },
            true },
        { "no folder", [](Entries& all) { all.pop_back(); }, true },
        { "plain again", [](Entries&) {}, true },
    };
    auto const first = FillingMenu::make(entries([](Entries&) {}));
    window->pose(first->menu);
    for (auto const& row : rows) {
        auto const drawnBefore = style->drawn;
        open(entries(row.change));
        settle();
        EXPECT_EQ(style->drawn != drawnBefore, row.isDrawn) << row.what;
        auto const shown = window->shown();
        EXPECT_EQ(shown, drawnAnew(top->menu)) << row.what;
        closeAndForget();
    }
    auto const light = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::black));
    open(entries([](Entries&) {}));
    settle();
    EXPECT_EQ(window->shown(), drawnAnew(top->menu)) << "other colours";
    QApplication::setPalette(light);
    closeAndForget();

    open(entries([](Entries&) {}));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(done, std::vector<std::string> { "one" }) << "what it does is of this opening";
}

TEST_F(MenuWindowTest, AVeryLongNameLosesItsMiddleNotTheMenuItsShape)
{
    auto const name = std::string(250, 'x') + ".mkv";
    open({ leaf("Short & sweet"), leaf(name) });
    EXPECT_LT(window->sizeHint().width(), 40 * window->fontMetrics().height());
    EXPECT_LT(window->drawnText(1).size(), 200);
    EXPECT_TRUE(window->drawnText(1).endsWith(".mkv"));
    EXPECT_EQ(window->actions()[1]->text(), QString::fromStdString(name)) << "whole for those who hear it";
    EXPECT_EQ(window->actions()[1]->toolTip(), QString::fromStdString(name));
    EXPECT_EQ(window->drawnText(0), "Short && sweet");
}

/// Gives every entry a menu with one command, and every entry a folder to open.
struct OneCommand : EntryMenus {
    explicit OneCommand(std::function<void()> chosen, std::function<void()> folderOpened)
        : command(FillingMenu::make({ leaf("Copy", std::move(chosen)) }))
        , opening(std::make_shared<MenuActionTarget>(std::move(folderOpened)))
    {
    }
    MenuEntry menuOf(MenuEntry const& entry) const override { return branch(entry.title, command); }
    std::shared_ptr<MenuActionTarget> openingOf(EntrySubject const&) const override { return opening; }
    std::optional<Url> fileOf(EntrySubject const&) const override { return std::nullopt; }
    std::optional<Url> folderOf(EntrySubject const&) const override { return folder; }
    void drop(std::vector<Url> const& files, Url const& where, FileTransfer how) const override
    {
        dropped.push_back(files.at(0).path() + " " + std::to_string(static_cast<int>(how)) + " " + where.path());
    }
    void addHead(Menu&, EntrySubject const&) const override { }
    std::optional<Url> folder;
    mutable std::vector<std::string> dropped;
    std::shared_ptr<FillingMenu> command;
    std::shared_ptr<MenuActionTarget> opening;
};

TEST_F(MenuWindowTest, AnEntrysOwnMenuAndAFolderOpenByPointerAndByKey)
{
    OneCommand const own(note("copied"), note("folder opened"));
    auto const inner = FillingMenu::make({ leaf("in it") });
    auto file = leaf("File", note("chosen"));
    auto folder = branch("Folder", inner);
    file.subject.menus = folder.subject.menus = &own;
    auto const click = [this](QEvent::Type type, Qt::MouseButton button, int entry) {
        auto const at = QPointF(window->actionGeometry(window->actions()[entry]).center());
        QMouseEvent event(type, at, window->mapToGlobal(at), button, button, {});
        QApplication::sendEvent(window.get(), &event);
    };
    auto const chooseInTop = [this] {
        EXPECT_NE(QApplication::activePopupWidget(), window.get()) << "its menu is open";
        if (!static_cast<QMenu*>(QApplication::activePopupWidget())->activeAction())
            press(Qt::Key_Down);
        press(Qt::Key_Return);
    };
    auto const pointAtFolder = [&] { // its submenu opens, and nothing in that is selected
        window->setActiveAction(window->actions()[1]);
        window->actions()[1]->menu()->setActiveAction(nullptr);
    };
    struct Row {
        std::function<void()> act;
        char const* expected;
    };
    Row const rows[] = {
        { [&] { click(QEvent::MouseButtonPress, Qt::RightButton, 0), chooseInTop(); }, "copied" },
        { [&] { press(Qt::Key_Down), press(Qt::Key_Menu), chooseInTop(); }, "copied" },
        { [&] { press(Qt::Key_Down), press(Qt::Key_F10, {}, Qt::ShiftModifier), chooseInTop(); }, "copied" },
        { [&] { click(QEvent::MouseButtonDblClick, Qt::LeftButton, 1); }, "folder opened" },
        { [&] { click(QEvent::MouseButtonPress, Qt::LeftButton, 1), click(QEvent::MouseButtonPress, Qt::LeftButton, 1); }, "folder opened" },
        { [&] { press(Qt::Key_Up), press(Qt::Key_Return, {}, Qt::ShiftModifier); }, "folder opened" },
        { [&] { pointAtFolder(), press(Qt::Key_Return, {}, Qt::ShiftModifier); }, "folder opened" },
        { [&] { press(Qt::Key_Down), press(Qt::Key_Return, {}, Qt::ShiftModifier); }, "chosen" },
    };
    for (auto const& row : rows) {
        done.clear();
        open({ file, folder });
        row.act();
        EXPECT_EQ(done, std::vector<std::string> { row.expected }) << &row - &rows[0];
        EXPECT_FALSE(window->isVisible());
    }
    auto gone = MenuEntry::disabled("Gone");
    for (auto const* menus : { static_cast<EntryMenus const*>(&own), static_cast<EntryMenus const*>(nullptr) }) {
        gone.subject.menus = menus;
        done.clear();
        open({ gone, file });
        press(Qt::Key_Down), press(menus ? Qt::Key_Menu : Qt::Key_Return);
        if (menus)
            chooseInTop();
        EXPECT_EQ(done, std::vector<std::string> { menus ? "copied" : "chosen" }) << "keys reach a dimmed entry for its own menu alone";
    }
    open({ file, folder });
    click(QEvent::MouseMove, Qt::NoButton, 1); // has the toolkit open the submenu soon
    click(QEvent::MouseButtonPress, Qt::RightButton, 1);
    for (QDeadlineTimer const left(150); !left.hasExpired();)
        QApplication::processEvents();
    EXPECT_FALSE(window->actions()[1]->menu()->isVisible()) << "it would take the pointer from the entry's own menu";
    window->close();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "closes with the menu";
}

TEST_F(MenuWindowTest, FilesAreDroppedOnFoldersAsTheKeysSay)
{
    OneCommand own([] {}, [] {});
    own.folder = Url::fromPath("/Folder");
    auto file = leaf("File");
    auto folder = branch("Folder", FillingMenu::make({}));
    folder.subject.menus = &own;
    QMimeData data;
    data.setUrls({ QUrl::fromLocalFile("/a b.txt") });
    struct Row {
        int entry;
        Qt::KeyboardModifiers held;
        std::vector<std::string> expected;
    };
    Row const rows[] = {
        { 0, {}, {} },
        { 1, {}, { "/a b.txt 0 /Folder" } },
        { 1, Qt::ControlModifier, { "/a b.txt 1 /Folder" } },
        { 1, Qt::ControlModifier | Qt::ShiftModifier, { "/a b.txt 2 /Folder" } },
    };
    for (auto const& row : rows) {
        own.dropped.clear();
        open({ file, folder });
        auto const at = QPointF(window->actionGeometry(window->actions()[row.entry]).center());
        QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, {}, row.held);
        QApplication::sendEvent(window.get(), &enter);
        EXPECT_TRUE(enter.isAccepted()) << "the toolkit tells of no move otherwise";
        QDragMoveEvent over(at.toPoint(), Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, &data, {}, row.held);
        QApplication::sendEvent(window.get(), &over);
        EXPECT_EQ(over.isAccepted(), row.entry == 1);
        QDropEvent drop(at, Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, &data, {}, row.held);
        QApplication::sendEvent(window.get(), &drop);
        EXPECT_EQ(own.dropped, row.expected);
        window->close();
    }
}

} // namespace
} // namespace zv
