#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#include "base/MainThread.h"

#import <Carbon/Carbon.h>
#import <CoreGraphics/CoreGraphics.h>
#include <map>
#include <set>

namespace zv {

namespace {

/// The owner of our hotkeys, filed beside the id.
constexpr OSType hotkeySignature = 'ZVHK';
static_assert(hotkeySignature == 0x5A56484B);

// The model's numbers are Carbon's own.
static_assert(static_cast<int>(KeyModifier::commandKey) == 256 && static_cast<int>(::cmdKey) == 256);
static_assert(static_cast<int>(KeyModifier::shiftKey) == 512 && static_cast<int>(::shiftKey) == 512);
static_assert(static_cast<int>(KeyModifier::optionKey) == 2048 && static_cast<int>(::optionKey) == 2048);
static_assert(static_cast<int>(KeyModifier::controlKey) == 4096 && static_cast<int>(::controlKey) == 4096);
static_assert(kEventHotKeyPressed == 5);
static_assert(eventNotHandledErr == -9874);

/// Combinations through the Carbon event manager, each under the id that the core gives it:
/// a press under an older id is dropped.
class CarbonHotkeyRegistrar : public HotkeyRegistrar {
public:
    CarbonHotkeyRegistrar(MenuTracking const& tracking, Timers& timers)
        : m_tracking(tracking)
        , m_timers(timers)
    {
    }
    ~CarbonHotkeyRegistrar() override
    {
        releaseAll();
        if (m_handler)
            RemoveEventHandler(m_handler);
    }

    std::vector<bool> claimAll(HotkeyID firstID, std::span<KeyChord const> chords) override
    {
        releaseAll();
        installHandler();
        std::vector<bool> answers;
        for (auto const& chord : chords) {
            bool const isClaimed = hold(firstID, chord);
            if (isClaimed)
                ++firstID;
            answers.push_back(isClaimed);
        }
        return answers;
    }

    void releaseAll() override
    {
        for (auto const& [id, held] : m_held)
            UnregisterEventHotKey(held.reference);
        m_held.clear();
    }

    HotkeySupport support() const override { return HotkeySupport::everywhere; }

private:
    struct Held {
        EventHotKeyRef reference;
        std::uint16_t key;
    };

    bool hold(HotkeyID id, KeyChord chord)
    {
        EventHotKeyRef reference = nullptr;
        EventHotKeyID const identity { hotkeySignature, id };
        OSStatus const status = RegisterEventHotKey(chord.keyCode, chord.modifiers, identity, GetEventDispatcherTarget(), 0, &reference);
        if (status != noErr || !reference)
            return false;
        m_held.emplace(id, Held { reference, chord.keyCode });
        awaitRelease(chord.keyCode);
        return true;
    }

    /// Keeps a key that is down now from firing before its release: it was pressed for something
    /// else, such as the recorder. Looks again only while such a key is held, which is not for long.
    void awaitRelease(std::uint16_t key)
    {
        if (!isDown(key))
            return;
        m_down.insert(key);
        if (!m_watch)
            m_watch = m_timers.every(std::chrono::milliseconds(30), [this] { forgetReleasedKeys(); });
    }

    void forgetReleasedKeys()
    {
        std::erase_if(m_down, [](std::uint16_t key) { return !isDown(key); });
        if (m_down.empty())
            m_watch.reset();
    }

    static bool isDown(std::uint16_t key) { return CGEventSourceKeyState(kCGEventSourceStateCombinedSessionState, key); }

    void installHandler()
    {
        if (m_handler)
            return;
        EventTypeSpec const type { kEventClassKeyboard, kEventHotKeyPressed };
        InstallEventHandler(GetEventDispatcherTarget(), handle, 1, &type, this, &m_handler);
    }

    static OSStatus handle(EventHandlerCallRef, EventRef event, void* owner)
    {
        assertMainThread();
        if (!event)
            return eventNotHandledErr;
        EventHotKeyID identity {};
        OSStatus const status = GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr, sizeof identity, nullptr, &identity);
        if (status == noErr)
            static_cast<CarbonHotkeyRegistrar*>(owner)->pressed(identity.id, GetEventTime(event));
        return status;
    }

    /// Drops a press made while a menu of ours was open: it is queued until the menu closes,
    /// which has handled it already.
    void pressed(HotkeyID id, double time)
    {
        bool const wasForMenu = m_tracking.isOpen || time <= m_tracking.lastClosed;
        auto const held = m_held.find(id);
        bool const isPress = held != m_held.end() && !m_down.contains(held->second.key);
        if (isPress && onPressed && !wasForMenu)
            onPressed(id);
    }

    MenuTracking const& m_tracking;
    Timers& m_timers;
    EventHandlerRef m_handler = nullptr;
    std::map<HotkeyID, Held> m_held;
    std::set<std::uint16_t> m_down; ///< since before they were claimed
    std::unique_ptr<Timer> m_watch;
};

} // namespace

std::unique_ptr<HotkeyRegistrar> makeHotkeyRegistrar(MenuTracking const& tracking, Timers& timers)
{
    return std::make_unique<CarbonHotkeyRegistrar>(tracking, timers);
}

} // namespace zv
