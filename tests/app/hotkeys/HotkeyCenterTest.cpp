#include "app/hotkeys/HotkeyCenter.h"

#include "tests/fakes/FakeHotkeys.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using Target = HotkeyCenter::Target;
using Conflict = HotkeyCenter::Conflict;

constexpr std::uint16_t keyE = 14;

KeyEquivalentSpec commandOption(std::string_view character) { return { .trigger = KeyEquivalentSpec::Trigger::character(character), .option = true }; }

MenuItem itemWith(std::optional<KeyEquivalentSpec> shortcut, MenuItemKind kind = MenuItemKind::sleep)
{
    auto item = MenuItem::ofKind(std::move(kind));
    item.keyEquivalent = std::move(shortcut);
    return item;
}

Url file(std::string_view path) { return Url::fromPath(path); }

class HotkeyCenterTest : public testing::Test {
protected:
    HotkeyCenterTest()
    {
        source.set({ { { 0, "a" }, { 6, "z" }, { keyE, "e" }, { 11, "b" } } });
        center.onTrigger = [this](Target const& target) { triggered.push_back(target); };
    }

    void register_(std::vector<MenuItem> items)
    {
        menu = std::move(items);
        center.menuItemsChanged(menu);
    }

    /// The targets that hold a combination, in the order of their ids.
    std::vector<Target> registered() const
    {
        std::vector<Target> targets;
        for (auto const& [id, registration] : center.registrations())
            targets.push_back(registration.target);
        return targets;
    }

    fakes::FakeHotkeyRegistrar registrar;
    fakes::FakeKeyboardLayoutSource source;
    Notifications notifications;
    KeyboardLayout layout { source, notifications };
    std::vector<MenuItem> menu;
    HotkeyCenter center { registrar, layout };
    std::vector<Target> triggered;
};

TEST_F(HotkeyCenterTest, TurnsEveryShortcutIntoAKeyAndItsModifiers)
{
    using Trigger = KeyEquivalentSpec::Trigger;
    struct Row {
        KeyEquivalentSpec spec;
        std::optional<KeyChord> chord;
        char const* why;
    };
    Row const rows[] = {
        { { Trigger::character("E") }, KeyChord { keyE, 256 }, "Command is implied; the layout's key for the lower-case letter" },
        { { Trigger::character("E"), true, true, false, false }, KeyChord { keyE, 2816 }, "Command-Shift-Option" },
        { { Trigger::character("E"), true, true, true, true }, KeyChord { keyE, 512 + 2048 + 4096 }, "all but Command" },
        { { Trigger::named("F5"), false, false, false, true }, KeyChord { 96, 0 }, "a named key in any case, bare" },
        { { Trigger::named("esc"), false, false, true, false }, KeyChord { 53, 4096 + 256 }, "Escape" },
        { { Trigger::named("Home") }, std::nullopt, "a name that is no key of ours" },
        { { Trigger::character("я") }, std::nullopt, "a letter that the layout does not have" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        register_({ itemWith(row.spec) });
        EXPECT_EQ(registrar.held.size(), row.chord ? 1U : 0U);
        EXPECT_TRUE(!row.chord || registrar.holds(*row.chord));
        EXPECT_TRUE(center.conflicts().empty());
    }
}

TEST_F(HotkeyCenterTest, GivesAShortcutToWhoeverIsReachedFirst)
{
    auto const nested = itemWith(commandOption("E"));
    auto folder = MenuItem::ofKind(MenuItemKind::submenu);
    folder.children = { nested };
    auto const top = itemWith(commandOption("E"));
    auto hidden = itemWith(commandOption("A"));
    hidden.isHidden = true;

    center.setFileHotkeys({ { file("/z/E"), commandOption("E") }, { file("/z/2"), commandOption("B") }, { file("/z/1"), commandOption("B") } });
    register_({ folder, top, hidden });

    EXPECT_EQ(registered(), (std::vector { Target::item(nested.id), Target::item(hidden.id), Target::file(file("/z/1")) }));
    EXPECT_EQ(center.conflicts(),
        (std::set<Conflict> { { Target::item(top.id), "⌥⌘E" }, { Target::file(file("/z/E")), "⌥⌘E" }, { Target::file(file("/z/2")), "⌥⌘B" } }));
}

TEST_F(HotkeyCenterTest, OrdersFilesByPathAndNotByTheirEncodedUrl)
{
    // "é" is encoded as "%C3%A9", and "%" comes before every letter.
    center.setFileHotkeys({ { file("/é"), commandOption("E") }, { file("/z"), commandOption("E") } });
    center.reregister();
    EXPECT_EQ(registered(), (std::vector { Target::file(file("/z")) }));
}

TEST_F(HotkeyCenterTest, LeavesRetiredKindsAlone)
{
    MenuItemKind const excluded[] = { MenuItemKind::openWith, MenuItemKind::addToZantheVellItems, MenuItemKind::menuCommand, MenuItemKind::makeUnknown("Odd") };
    for (auto const& kind : excluded) {
        auto parent = itemWith(commandOption("E"), kind);
        auto const child = itemWith(commandOption("E"), MenuItemKind::dockPosRight);
        parent.children = { child };
        register_({ parent });
        EXPECT_EQ(registered(), (std::vector { Target::item(child.id) })) << kind.rawValue();
        EXPECT_TRUE(center.conflicts().empty()) << kind.rawValue();
    }
    register_({ itemWith(commandOption("E"), MenuItemKind::separator) });
    EXPECT_EQ(registrar.held.size(), 1U);
}

TEST_F(HotkeyCenterTest, UsesUpATextEvenWhereItsKeyIsMissing)
{
    auto const later = itemWith(commandOption("Я"));
    register_({ itemWith(commandOption("Я")), later });
    EXPECT_TRUE(registrar.held.empty());
    EXPECT_EQ(center.conflicts(), (std::set<Conflict> { { Target::item(later.id), "⌥⌘Я" } }));
}

TEST_F(HotkeyCenterTest, NeverUsesAnIdTwice)
{
    register_({ itemWith(commandOption("A")), itemWith(commandOption("E")) });
    for (int pass = 1; pass < 3; ++pass)
        center.reregister();
    EXPECT_EQ(center.registrations().begin()->first, 5U);

    registrar.taken = { { 0, 256 + 2048 } };
    center.reregister();
    ASSERT_EQ(center.registrations().size(), 1U) << "what is refused uses no id";
    EXPECT_EQ(center.registrations().begin()->first, 7U);
}

TEST_F(HotkeyCenterTest, AChangeThatLeavesTheShortcutsMakesNoPass)
{
    auto item = itemWith(commandOption("E"));
    struct Row {
        char const* what;
        int passes;
        std::function<void()> change;
    };
    Row const rows[] = {
        { "another title", 0, [&] { item.title = "other"; } },
        { "another shortcut", 1, [&] { item.keyEquivalent = commandOption("A"); } },
        { "another item", 1, [&] { item.id = Uuid::random(); } },
        { "one that is refused", 1, [&] { item.keyEquivalent = commandOption("B"); } },
        { "which may be free now", 1, [&] { registrar.taken.clear(); } },
        { "a file’s", 1,
            [&] {
                center.setFileHotkeys({ { file("/a"), commandOption("Z") } });
            } },
        { "all were let go", 1, [&] { center.unregisterAll(); } },
    };
    registrar.taken = { { 11, 256 + 2048 } };
    register_({ item });
    for (auto const& row : rows) {
        auto const before = registrar.passes;
        row.change();
        register_({ item });
        EXPECT_EQ(registrar.passes - before, row.passes) << row.what;
    }
}

TEST_F(HotkeyCenterTest, IsInConflictWhileAnotherProgramHasTheCombination)
{
    auto const item = itemWith(commandOption("E"));
    registrar.taken = { { keyE, 256 + 2048 } };
    register_({ item });
    EXPECT_EQ(center.conflicts(), (std::set<Conflict> { { Target::item(item.id), "⌥⌘E" } }));

    registrar.taken.clear();
    center.retryRefused();
    EXPECT_TRUE(center.conflicts().empty());
    auto const passes = registrar.passes;
    center.retryRefused();
    EXPECT_EQ(registrar.passes, passes) << "nothing is left to retry";
    EXPECT_EQ(registered(), (std::vector { Target::item(item.id) }));
}

TEST_F(HotkeyCenterTest, TellsObserversWhenConflictsAppearAndGo)
{
    int changes = 0;
    Observation observation;
    std::function<void()> const track = [&] {
        observation = withObservationTracking([&] { (void)center.conflicts(); },
            [&] {
                ++changes;
                track();
            });
    };
    track();
    std::vector const items { itemWith(commandOption("E")), itemWith(commandOption("E")) };
    register_(items);
    register_(items);
    EXPECT_EQ(changes, 1) << "the second pass found the same";
    center.unregisterAll();
    EXPECT_EQ(changes, 2);
}

TEST_F(HotkeyCenterTest, TriggersWhatTheIdStandsForNow)
{
    auto const item = itemWith(commandOption("E"));
    register_({ item });
    registrar.onPressed(1);
    EXPECT_EQ(triggered, (std::vector { Target::item(item.id) }));

    center.reregister();
    registrar.onPressed(1);
    registrar.onPressed(99);
    EXPECT_EQ(triggered.size(), 1U) << "an old id and one that never was";
    registrar.onPressed(2);
    EXPECT_EQ(triggered.size(), 2U);

    center.onTrigger = nullptr;
    registrar.onPressed(2);
    EXPECT_EQ(triggered.size(), 2U);
}

TEST_F(HotkeyCenterTest, SurvivesATriggerThatRegistersAnew)
{
    auto const item = itemWith(commandOption("E"));
    register_({ item });
    center.onTrigger = [&](Target const& target) {
        center.onTrigger = nullptr;
        center.unregisterAll();
        triggered.push_back(target);
    };
    registrar.onPressed(1);
    EXPECT_EQ(triggered, (std::vector { Target::item(item.id) }));
    EXPECT_TRUE(registrar.held.empty());
}

TEST_F(HotkeyCenterTest, HoldsNothingWhilePausedWhateverRegistersAnew)
{
    auto const item = itemWith(commandOption("E"));
    register_({ item });
    center.pause();
    register_({ item });
    registrar.onInvalidated();
    EXPECT_TRUE(registrar.held.empty());
    EXPECT_TRUE(center.registrations().empty());
    center.resume();
    EXPECT_EQ(registrar.held.size(), 1U);
}

TEST_F(HotkeyCenterTest, RegistersAgainWhenTheSystemForgot)
{
    register_({ itemWith(commandOption("E")) });
    registrar.onInvalidated();
    EXPECT_EQ(registrar.passes, 2);
    EXPECT_EQ(center.registrations().begin()->first, 2U);
}

TEST_F(HotkeyCenterTest, BlamesNobodyWhereTheSystemHasNoHotkeys)
{
    registrar.supported = HotkeySupport::none;
    register_({ itemWith(commandOption("E")), itemWith(commandOption("E")) });
    EXPECT_TRUE(center.registrations().empty());
    EXPECT_EQ(center.conflicts().size(), 1U) << "our own duplicate is one anywhere";
}

TEST_F(HotkeyCenterTest, FollowsTheLayoutAtTheNextPass)
{
    auto const item = itemWith(commandOption("Я"));
    register_({ item });
    EXPECT_TRUE(registrar.held.empty());

    auto const token = notifications.observe(KeyboardLayout::changedNotification, [this] { center.reregister(); });
    source.set({ { { 6, "я" } } });
    source.onChanged();
    EXPECT_TRUE(registrar.holds({ 6, 256 + 2048 }));
    EXPECT_TRUE(center.conflicts().empty());
}

TEST_F(HotkeyCenterTest, TellsWhenTheDesktopsServiceComesToAnswer)
{
    registrar.supported = HotkeySupport::none;
    register_({ itemWith(commandOption("E")) });
    EXPECT_TRUE(center.registrations().empty());
    EXPECT_TRUE(center.conflicts().empty());
    bool isTold = false;
    auto const observation = withObservationTracking([&] { (void)center.support(); }, [&] { isTold = true; });
    registrar.supported = HotkeySupport::askingTheUser;
    registrar.onInvalidated();
    EXPECT_TRUE(isTold);
    EXPECT_EQ(center.support(), HotkeySupport::askingTheUser);
    EXPECT_EQ(center.registrations().size(), 1U);
}

} // namespace
} // namespace zv
