#include "platform/linux/hotkeys/XcbHotkeyRegistrar.h"
#include "platform/linux/hotkeys/XkbKeyboardLayoutSource.h"
#include "platform/linux/toolkit/QtTasks.h"
#include "platform/linux/toolkit/QtTimers.h"
#include "tests/desktop/PrivateX.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using namespace std::chrono_literals;
using tests::turnUntil;

// Virtual key codes, and the X server's for the same places.
constexpr std::uint16_t keyA = 0, keyS = 1, keyZ = 6, keyE = 14, keyR = 15, keyY = 16;
constexpr std::uint8_t xA = 38, xE = 26, xR = 27, xAlt = 64, xSuper = 133, xCapsLock = 66, xNumLock = 77, xScrollLock = 78;
constexpr std::uint16_t superBit = XCB_MOD_MASK_4, altBit = XCB_MOD_MASK_1, numLockBit = XCB_MOD_MASK_2;

class XcbHotkeysTest : public testing::Test {
protected:
    static void SetUpTestSuite() { ensureApplication(); }

    void SetUp() override
    {
        ASSERT_TRUE(server.isRunning());
        ASSERT_TRUE(server.run("setxkbmap us && xset r rate 60 50"));
        connection = X11Connection::open();
        ASSERT_TRUE(connection);
        keyboard = std::make_unique<XkbKeyboardLayoutSource>(*connection, XkbExtension::setUp(*connection).value(), timers);
        registrar = std::make_unique<XcbHotkeyRegistrar>(*connection, *keyboard, timers);
        registrar->onPressed = [this](HotkeyID id) { pressed.push_back(id); };
    }

    std::vector<bool> claim(HotkeyID firstID, std::vector<KeyChord> const& chords) { return registrar->claimAll(firstID, chords); }

    /// Turns the loop until all events under way have arrived, repeated keys included.
    static void settle(std::chrono::milliseconds time = 150ms)
    {
        turnUntil([] { return false; }, time);
    }
    void chord(std::uint8_t modifier, std::uint8_t key) const
    {
        user.press(modifier);
        user.tap(key);
        user.release(modifier);
    }

    desktop::PrivateX server;
    desktop::XClient user;
    QtTimers timers;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<XkbKeyboardLayoutSource> keyboard;
    std::unique_ptr<XcbHotkeyRegistrar> registrar;
    std::vector<HotkeyID> pressed;
};

TEST_F(XcbHotkeysTest, TellAPressOnceHoweverLongItIsHeld)
{
    ASSERT_EQ(claim(7, { { keyE, commandKey }, { keyA, commandKey | optionKey } }), (std::vector { true, true }));
    user.press(xSuper);
    user.press(xE);
    settle(300ms);
    EXPECT_EQ(pressed, (std::vector<HotkeyID> { 7 }));

    user.release(xE);
    user.tap(xE);
    user.press(xAlt);
    user.tap(xA);
    user.release(xAlt);
    user.release(xSuper);
    EXPECT_TRUE(turnUntil([this] { return pressed.size() == 3; }));
    EXPECT_EQ(pressed, (std::vector<HotkeyID> { 7, 7, 8 }));

    chord(xSuper, xA);
    user.tap(xE);
    settle();
    EXPECT_EQ(pressed.size(), 3U) << "other modifiers are another combination";
}

TEST_F(XcbHotkeysTest, TellEveryPressOfKeysThatOverlap)
{
    ASSERT_EQ(claim(1, { { keyE, commandKey }, { keyR, commandKey } }), (std::vector { true, true }));
    user.press(xSuper);
    user.press(xE);
    user.press(xR);
    user.release(xE);
    settle(); // R repeats all the while
    user.release(xR);
    settle();
    user.tap(xR);
    user.release(xSuper);
    settle();
    EXPECT_EQ(pressed, (std::vector<HotkeyID> { 1, 2, 2 }));
}

TEST_F(XcbHotkeysTest, WorkWhateverTheLocksAreSetTo)
{
    ASSERT_TRUE(server.run("xmodmap -e 'add mod3 = Scroll_Lock'"));
    settle();
    ASSERT_EQ(claim(1, { { keyE, commandKey } }), (std::vector { true }));
    std::size_t count = 0;
    for (auto const lock : { xCapsLock, xNumLock, xCapsLock, xNumLock, xScrollLock, xCapsLock }) { // Caps, both, Num, none, Scroll, with Caps
        user.tap(lock);
        chord(xSuper, xE);
        ++count;
        EXPECT_TRUE(turnUntil([&] { return pressed.size() == count; })) << count;
    }
}

TEST_F(XcbHotkeysTest, LeaveACombinationWhollyToTheProgramThatHasIt)
{
    desktop::XClient other;
    ASSERT_TRUE(other.grab(xE, superBit | numLockBit));
    EXPECT_EQ(claim(1, { { keyA, commandKey }, { keyE, commandKey } }), (std::vector { true, false }));
    for (auto const lock : { 0, int { XCB_MOD_MASK_LOCK }, int { XCB_MOD_MASK_LOCK } | numLockBit })
        EXPECT_TRUE(other.grab(xE, static_cast<std::uint16_t>(superBit | lock))) << lock;
    EXPECT_FALSE(other.grab(xA, superBit));

    for (auto const lock : { 0, int { XCB_MOD_MASK_LOCK }, int { numLockBit }, int { XCB_MOD_MASK_LOCK } | numLockBit })
        other.ungrab(xE, static_cast<std::uint16_t>(superBit | lock));
    EXPECT_EQ(claim(2, { { keyA, commandKey }, { keyE, commandKey } }), (std::vector { true, true }));
    EXPECT_EQ(claim(3, { { keyE, commandKey }, { keyE, commandKey }, { 127, commandKey } }), (std::vector { true, false, false })) << "once a pass";
}

TEST_F(XcbHotkeysTest, ReleaseWhatIsNoLongerAskedFor)
{
    std::vector<KeyChord> const all { { keyA, commandKey }, { keyS, commandKey }, { keyE, commandKey }, { keyR, commandKey } };
    struct Row {
        std::vector<KeyChord> wanted;
        bool aIsFree, eIsFree;
        char const* why;
    };
    Row const rows[] = {
        { { all[0], all[1], all[3] }, false, true, "one of four" },
        { { all[0] }, false, true, "most of them" },
        { {}, true, true, "all" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        (void)claim(1, all);
        EXPECT_EQ(claim(5, row.wanted), std::vector<bool>(row.wanted.size(), true));
        desktop::XClient const other;
        EXPECT_EQ(other.grab(xA, superBit), row.aIsFree);
        EXPECT_EQ(other.grab(xE, superBit | XCB_MOD_MASK_LOCK), row.eIsFree);
    }
}

TEST_F(XcbHotkeysTest, SayNothingToTheServerInAnUnchangedPass)
{
    std::vector<KeyChord> const chords { { keyA, commandKey }, { keyE, commandKey } };
    (void)claim(1, chords);
    settle();
    auto const before = xcb_no_operation(connection->get()).sequence;
    EXPECT_EQ(claim(3, chords), (std::vector { true, true }));
    EXPECT_EQ(xcb_no_operation(connection->get()).sequence, before + 1);

    chord(xSuper, xE);
    EXPECT_TRUE(turnUntil([this] { return !pressed.empty(); }));
    EXPECT_EQ(pressed, (std::vector<HotkeyID> { 4 })) << "though the ids are new";
}

TEST_F(XcbHotkeysTest, FireNothingForAKeyThatWasPressedForAnOpenMenu)
{
    (void)claim(1, { { keyE, commandKey } });
    user.grabKeyboard();
    user.press(xSuper);
    user.press(xE);
    settle();
    user.ungrabKeyboard();
    registrar->ownMenuDidClose();
    settle(300ms); // the key is still held, and repeats
    EXPECT_TRUE(pressed.empty());

    user.release(xE);
    settle();
    user.tap(xE);
    user.release(xSuper);
    EXPECT_TRUE(turnUntil([this] { return pressed.size() == 1; })) << "pressed anew";
}

TEST_F(XcbHotkeysTest, FireNothingForAKeyThatWasDownWhenItWasClaimed)
{
    user.press(xSuper);
    user.press(xE);
    ASSERT_EQ(claim(1, { { keyE, commandKey } }), (std::vector { true }));
    settle(400ms); // it repeats
    registrar->releaseAll();
    ASSERT_EQ(claim(2, { { keyE, commandKey } }), (std::vector { true }));
    settle(200ms);
    EXPECT_TRUE(pressed.empty());

    user.release(xE);
    settle();
    user.tap(xE);
    user.release(xSuper);
    EXPECT_TRUE(turnUntil([this] { return !pressed.empty(); }));
    EXPECT_EQ(pressed, (std::vector<HotkeyID> { 2 })) << "pressed anew";
}

TEST_F(XcbHotkeysTest, FollowModifiersThatMove)
{
    (void)claim(1, { { keyE, commandKey } });
    int invalidations = 0;
    registrar->onInvalidated = [&] {
        ++invalidations;
        EXPECT_EQ(claim(2, { { keyE, commandKey } }), (std::vector { true }));
    };
    ASSERT_TRUE(server.run("setxkbmap us  && xmodmap -e 'clear mod4' -e 'add mod3 = Super_L'"));
    EXPECT_TRUE(turnUntil([&] { return invalidations > 0; }));
    chord(xSuper, xE);
    EXPECT_TRUE(turnUntil([this] { return !pressed.empty(); }));
    EXPECT_EQ(pressed, (std::vector<HotkeyID> { 2 }));
    desktop::XClient const other;
    EXPECT_TRUE(other.grab(xE, superBit)) << "the old modifier is free";

    invalidations = 0;
    ASSERT_TRUE(server.run("xmodmap -e 'clear mod2' -e 'add mod5 = Num_Lock'"));
    EXPECT_TRUE(turnUntil([&] { return invalidations > 0; }));
    settle();
    pressed.clear();
    user.tap(xNumLock);
    chord(xSuper, xE);
    EXPECT_TRUE(turnUntil([this] { return !pressed.empty(); })) << "with a lock that moved";
}

TEST_F(XcbHotkeysTest, KnowTheKeysOfTheLayoutThatIsSelected)
{
    int changes = 0;
    ASSERT_EQ(keyboard->layers().front().at(keyZ), "z");
    keyboard->onChanged = [&] { ++changes; };

    ASSERT_TRUE(server.run("setxkbmap us"));
    user.tap(xA);
    settle();
    EXPECT_EQ(changes, 0) << "events came, but the keys type what they did";

    ASSERT_TRUE(server.run("setxkbmap de"));
    EXPECT_TRUE(turnUntil([&] { return changes > 0; }));
    settle();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(keyboard->layers().front().at(keyZ), "y");
    EXPECT_EQ(keyboard->layers().front().at(keyY), "z");
    EXPECT_EQ(keyboard->layers().front().at(50), "^") << "a dead key by its accent";
}

TEST_F(XcbHotkeysTest, FollowTheGroupThatIsSelected)
{
    ASSERT_TRUE(server.run("setxkbmap us,ru -option grp:caps_toggle"));
    EXPECT_EQ(keyboard->layers().size(), 1U);
    int changes = 0;
    keyboard->onChanged = [&] { ++changes; };
    settle();
    changes = 0;

    user.tap(xCapsLock);
    EXPECT_TRUE(turnUntil([&] { return changes > 0; }));
    settle();
    EXPECT_EQ(changes, 1);
    auto const layers = keyboard->layers();
    ASSERT_EQ(layers.size(), 2U);
    EXPECT_EQ(layers[0].at(keyZ), "я");
    EXPECT_EQ(layers[1].at(keyZ), "z");

    (void)claim(1, { { keyE, commandKey } });
    chord(xSuper, xE);
    EXPECT_TRUE(turnUntil([this] { return !pressed.empty(); })) << "in the second group too";
}

TEST(XkbKeymap, LendsLatinLettersToLayoutsWithoutThem)
{
    struct Row {
        char const* layouts;
        std::uint32_t group;
        std::size_t layers;
        std::string first, last;
        char const* why;
    };
    Row const rows[] = {
        { "us", 0, 1, "z", "z", "Latin itself" },
        { "de", 0, 1, "y", "y", "the letters of a German keyboard" },
        { "ru", 0, 2, "я", "z", "no Latin group at all: a US layout" },
        { "ru,de", 0, 2, "я", "y", "the first Latin group, wherever it is" },
        { "us,gr", 1, 2, "ζ", "z", "Greek" },
        { "epo", 0, 1, "z", "z", "Esperanto, which lacks four letters" },
        { "fr,us", 1, 2, "z", "w", "what a Latin layout lacks comes from the first one" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(std::string(row.layouts) + ": " + row.why);
        auto const keymap = XkbKeymap::named(row.layouts);
        ASSERT_TRUE(keymap);
        auto const layers = keymap->layers(row.group);
        ASSERT_EQ(layers.size(), row.layers);
        EXPECT_EQ(layers.front().at(keyZ), row.first);
        EXPECT_EQ(layers.back().at(keyZ), row.last);
        EXPECT_EQ(layers.front().at(53), "") << "Escape types nothing";
    }
}

TEST(XkbKeymap, KnowsWhereKeysAndModifiersAre)
{
    auto const keymap = XkbKeymap::named("us");
    ASSERT_TRUE(keymap);
    EXPECT_EQ(keymap->modifiers(), (ModifierBits { superBit, altBit, numLockBit, 0 }));
    EXPECT_EQ(keymap->keycodes().at(keyE), xE);
    EXPECT_EQ(keymap->keycodes().at(122), 67) << "F1";
    EXPECT_EQ(keymap->keycodes().at(113), 193) << "F15";
    EXPECT_EQ(keymap->keycodes().at(127), 0) << "no such key";

    auto const without = XkbKeymap::fromText("xkb_keymap { xkb_keycodes { <AD03> = 26; }; xkb_types { virtual_modifiers Super, Alt, NumLock; };"
                                             " xkb_compat {}; xkb_symbols { key <AD03> { [ e ] }; }; };");
    ASSERT_TRUE(without);
    EXPECT_EQ(without->modifiers(), (ModifierBits { superBit, altBit, numLockBit, 0 })) << "the usual ones, where no key has any";
}

} // namespace
} // namespace zv
