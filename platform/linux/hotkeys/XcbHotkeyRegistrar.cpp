#include "platform/linux/hotkeys/XcbHotkeyRegistrar.h"

#include "base/MainThread.h"
#include "platform/linux/hotkeys/XkbKeyboardLayoutSource.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <iterator>
#include <utility>

namespace zv {

namespace {

constexpr std::chrono::milliseconds heldKeysInterval { 30 };

/// Keeps the server from serving other clients while it lives, so that none takes a grab in between.
class ServerGrab {
public:
    explicit ServerGrab(xcb_connection_t* connection)
        : m_connection(connection)
    {
        xcb_grab_server(m_connection);
    }
    ~ServerGrab()
    {
        xcb_ungrab_server(m_connection);
        xcb_flush(m_connection);
    }
    ServerGrab(ServerGrab const&) = delete;
    ServerGrab& operator=(ServerGrab const&) = delete;

private:
    xcb_connection_t* m_connection;
};

/// Those of `all`, in order, that `others`, in order, lack.
template <class Value> std::vector<Value> difference(std::vector<Value> const& all, std::vector<Value> const& others)
{
    std::vector<Value> found;
    std::set_difference(all.begin(), all.end(), others.begin(), others.end(), std::back_inserter(found));
    return found;
}

/// Notices when the program's pop-ups close, as they hold the keyboard while open.
class PopupFilter : public QObject {
public:
    explicit PopupFilter(std::function<void()> closed)
        : m_closed(std::move(closed))
    {
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Hide && watched->isWidgetType() && static_cast<QWidget*>(watched)->windowType() == Qt::Popup)
            m_closed();
        return false;
    }

private:
    std::function<void()> m_closed;
};

} // namespace

XcbHotkeyRegistrar::XcbHotkeyRegistrar(X11Connection& connection, XkbKeyboardLayoutSource& keyboard, Timers& timers)
    : m_connection(connection)
    , m_keyboard(keyboard)
    , m_timers(timers)
    , m_menuFilter(std::make_unique<PopupFilter>([this] { ownMenuDidClose(); }))
    , m_events(connection.onEvent([this](auto const& event) { handle(event); }))
{
    m_keyboard.onMappingChanged = [this] {
        releaseAll();
        if (onInvalidated)
            onInvalidated();
    };
    QCoreApplication::instance()->installEventFilter(m_menuFilter.get());
}

XcbHotkeyRegistrar::~XcbHotkeyRegistrar() { m_keyboard.onMappingChanged = nullptr; }

std::vector<bool> XcbHotkeyRegistrar::claimAll(HotkeyID firstID, std::span<KeyChord const> chords)
{
    assertMainThread();
    m_connection.dispatch(); // earlier presses belong to the earlier ids
    std::vector<Grab> wanted(chords.size());
    std::transform(chords.begin(), chords.end(), wanted.begin(), [this](KeyChord chord) { return grabFor(chord); });
    auto const idsAdvance = firstID - std::exchange(m_firstID, firstID);
    if (!wanted.empty() && wanted == m_claimed) {
        for (auto& held : m_held)
            held.id += idsAdvance;
        return std::vector<bool>(wanted.size(), true);
    }
    replaceHeld(wanted);

    std::vector<bool> answers;
    answers.reserve(wanted.size());
    for (auto& held : m_held)
        held.id = 0; // until one of this call has it
    for (auto const& each : wanted) {
        auto* const held = find(each);
        bool const succeeded = held && held->id == 0;
        if (succeeded)
            held->id = firstID++;
        answers.push_back(succeeded);
    }
    bool const haveAll = std::find(answers.begin(), answers.end(), false) == answers.end();
    m_claimed = haveAll ? std::move(wanted) : std::vector<Grab>();
    return answers;
}

void XcbHotkeyRegistrar::releaseAll()
{
    assertMainThread();
    m_claimed.clear();
    if (m_held.empty())
        return;
    ungrabAll();
    m_held.clear();
    xcb_flush(m_connection.get());
}

/// Returns an empty grab if this keyboard lacks the key. Its modifiers are never none of those wanted: a grab without
/// them would swallow typing.
XcbHotkeyRegistrar::Grab XcbHotkeyRegistrar::grabFor(KeyChord chord) const
{
    auto const bits = m_keyboard.modifiers();
    std::pair<std::uint32_t, std::uint16_t> const table[] = {
        { commandKey, bits.command },
        { shiftKey, XCB_MOD_MASK_SHIFT },
        { optionKey, bits.option },
        { controlKey, XCB_MOD_MASK_CONTROL },
    };
    Grab grab { m_keyboard.keycode(chord.keyCode), 0 };
    for (auto const& [modifier, bit] : table) {
        if ((chord.modifiers & modifier) != 0)
            grab.modifiers |= bit;
    }
    return grab;
}

/// The states of the locks to grab each chord with: a chord ignores them, but the server matches exact states.
std::vector<std::uint16_t> XcbHotkeyRegistrar::lockStates() const
{
    auto const bits = m_keyboard.modifiers();
    std::vector<std::uint16_t> states { 0 };
    for (auto const lock : { std::uint16_t { XCB_MOD_MASK_LOCK }, bits.numLock, bits.scrollLock }) {
        if (lock == 0 || (states.back() & lock) != 0)
            continue;
        for (auto i = states.size(); i-- > 0;)
            states.push_back(static_cast<std::uint16_t>(states[i] | lock));
    }
    return states;
}

XcbHotkeyRegistrar::Grab XcbHotkeyRegistrar::strippedOfLocks(std::uint8_t keycode, std::uint16_t state) const
{
    auto const locks = XCB_MOD_MASK_LOCK | m_keyboard.modifiers().numLock | m_keyboard.modifiers().scrollLock;
    return { keycode, static_cast<std::uint16_t>(state & 0xFF & ~locks) };
}

void XcbHotkeyRegistrar::replaceHeld(std::vector<Grab> const& wanted)
{
    std::vector<Grab> asked;
    std::copy_if(wanted.begin(), wanted.end(), std::back_inserter(asked), [](Grab const& each) { return each.keycode != 0; });
    std::sort(asked.begin(), asked.end());
    asked.erase(std::unique(asked.begin(), asked.end()), asked.end());
    auto const held = heldGrabs();
    auto missing = difference(asked, held);
    auto const obsolete = difference(held, asked);
    if (missing.empty() && obsolete.empty())
        return;

    ServerGrab const serverGrab(m_connection.get());
    std::erase_if(m_held, [&obsolete](Held const& each) { return std::binary_search(obsolete.begin(), obsolete.end(), each.grab); });
    if (obsolete.size() > m_held.size()) {
        // One request drops all grabs; the kept ones are then the smaller part to take again.
        ungrabAll();
        m_held.clear();
        missing = std::move(asked);
    } else {
        for (auto const& each : obsolete)
            ungrab(each);
    }
    auto const succeeded = grab(missing);
    for (std::size_t i = 0; i < missing.size(); ++i) {
        if (succeeded[i])
            m_held.push_back({ missing[i] });
    }
    std::ranges::sort(m_held, {}, &Held::grab);
    awaitReleaseOf(missing);
}

/// Keeps keys that are down now from firing before their release: they were pressed for something
/// else, such as the recorder. The repeats of a held key look like presses.
void XcbHotkeyRegistrar::awaitReleaseOf(std::span<Grab const> grabs)
{
    if (grabs.empty())
        return;
    auto const down = keysDown();
    for (auto const& each : grabs) {
        if (down.test(each.keycode))
            m_down.set(each.keycode);
    }
    watchHeldKeys();
}

/// Sends all requests before waiting for the first answer.
std::vector<bool> XcbHotkeyRegistrar::grab(std::vector<Grab> const& grabs)
{
    auto* const xcb = m_connection.get();
    auto const locks = lockStates();
    std::vector<xcb_void_cookie_t> cookies;
    cookies.reserve(grabs.size() * locks.size());
    for (auto const& each : grabs) {
        for (auto const lock : locks)
            cookies.push_back(xcb_grab_key_checked(xcb, 0, m_connection.root(), each.modifiers | lock, each.keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    std::vector<bool> succeeded(grabs.size(), true);
    for (std::size_t i = 0; i < cookies.size(); ++i) {
        XReply<xcb_generic_error_t> const error(xcb_request_check(xcb, cookies[i]));
        if (error)
            succeeded[i / locks.size()] = false;
    }
    for (std::size_t i = 0; i < grabs.size(); ++i) {
        if (!succeeded[i])
            ungrab(grabs[i]); // releases the lock states that were granted
    }
    return succeeded;
}

void XcbHotkeyRegistrar::ungrab(Grab grab)
{
    for (auto const lock : lockStates())
        xcb_ungrab_key(m_connection.get(), grab.keycode, m_connection.root(), grab.modifiers | lock);
}

void XcbHotkeyRegistrar::ungrabAll() { xcb_ungrab_key(m_connection.get(), XCB_GRAB_ANY, m_connection.root(), XCB_MOD_MASK_ANY); }

void XcbHotkeyRegistrar::handle(xcb_generic_event_t const& event)
{
    auto const type = event.response_type & 0x7F;
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
        return;
    auto const& key = reinterpret_cast<xcb_key_press_event_t const&>(event);
    if (type == XCB_KEY_PRESS)
        keyPressed(key.detail, key.state);
    else
        keyReleased(key.detail);
}

/// Ignores the repeats of a held key. While a grabbed key is held we receive other presses too,
/// which count only if they are hotkeys.
void XcbHotkeyRegistrar::keyPressed(std::uint8_t keycode, std::uint16_t state)
{
    if (m_grabbingKey == 0)
        m_grabbingKey = keycode;
    if (m_down.test(keycode))
        return;
    m_down.set(keycode);
    auto const* const held = find(strippedOfLocks(keycode, state));
    if (!held || !onPressed)
        return;
    giveKeyboardBack();
    onPressed(held->id);
}

/// Ends the grab that the key started: a menu that the press opens needs the keyboard at once.
void XcbHotkeyRegistrar::giveKeyboardBack()
{
    xcb_ungrab_keyboard(m_connection.get(), XCB_CURRENT_TIME);
    m_connection.flush();
    m_grabbingKey = 0;
    watchHeldKeys();
}

/// The release of the grabbing key ends the keyboard grab, so releases of other keys are no longer reported.
void XcbHotkeyRegistrar::keyReleased(std::uint8_t keycode)
{
    m_down.reset(keycode);
    if (keycode != m_grabbingKey)
        return;
    m_grabbingKey = 0;
    watchHeldKeys();
}

void XcbHotkeyRegistrar::ownMenuDidClose() { awaitReleaseOf(heldGrabs()); }

std::vector<XcbHotkeyRegistrar::Grab> XcbHotkeyRegistrar::heldGrabs() const
{
    std::vector<Grab> grabs(m_held.size());
    std::transform(m_held.begin(), m_held.end(), grabs.begin(), [](Held const& held) { return held.grab; });
    return grabs;
}

XcbHotkeyRegistrar::Held* XcbHotkeyRegistrar::find(Grab grab)
{
    auto const found = std::ranges::lower_bound(m_held, grab, {}, &Held::grab);
    return found != m_held.end() && found->grab == grab ? &*found : nullptr;
}

/// Polls for releases only while a key is held, which is not for long.
void XcbHotkeyRegistrar::watchHeldKeys()
{
    if (m_down.any() && !m_watch)
        m_watch = m_timers.every(heldKeysInterval, [this] { forgetReleasedKeys(); });
}

void XcbHotkeyRegistrar::forgetReleasedKeys()
{
    auto const before = m_down;
    auto const down = keysDown();
    m_connection.dispatch(); // queued repeats of released keys still count as repeats
    m_down &= down | ~before;
    if (m_down.none())
        m_watch.reset();
}

XcbHotkeyRegistrar::Keycodes XcbHotkeyRegistrar::keysDown() const
{
    auto* const xcb = m_connection.get();
    XReply<xcb_query_keymap_reply_t> const reply(xcb_query_keymap_reply(xcb, xcb_query_keymap(xcb), nullptr));
    Keycodes down;
    for (std::size_t keycode = 0; reply && keycode < down.size(); ++keycode)
        down[keycode] = (reply->keys[keycode / 8] >> (keycode % 8) & 1) != 0;
    return down;
}

} // namespace zv
