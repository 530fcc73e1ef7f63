#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#include "base/MainThread.h"

#import <Carbon/Carbon.h>
#include <map>

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
    explicit CarbonHotkeyRegistrar(MenuTracking const& tracking)
        : m_tracking(tracking)
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
        for (auto const& [id, reference] : m_held)
            UnregisterEventHotKey(reference);
        m_held.clear();
    }

    HotkeySupport support() const override { return HotkeySupport::everywhere; }

private:
    bool hold(HotkeyID id, KeyChord chord)
    {
        EventHotKeyRef reference = nullptr;
        EventHotKeyID const identity { hotkeySignature, id };
        OSStatus const status = RegisterEventHotKey(chord.keyCode, chord.modifiers, identity, GetEventDispatcherTarget(), 0, &reference);
        if (status != noErr || !reference)
            return false;
        m_held.emplace(id, reference);
        return true;
    }

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
        if (m_held.contains(id) && onPressed && !wasForMenu)
            onPressed(id);
    }

    MenuTracking const& m_tracking;
    EventHandlerRef m_handler = nullptr;
    std::map<HotkeyID, EventHotKeyRef> m_held;
};

} // namespace

std::unique_ptr<HotkeyRegistrar> makeHotkeyRegistrar(MenuTracking const& tracking)
{
    return std::make_unique<CarbonHotkeyRegistrar>(tracking);
}

} // namespace zv
