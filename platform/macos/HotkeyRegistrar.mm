#import "platform/macos/Conversions.h"
#include "platform/macos/Factories.h"

#include "base/MainThread.h"

#import <Carbon/Carbon.h>
#include <map>

namespace zv {

namespace {

// The model's numbers are Carbon's own.
static_assert(static_cast<int>(KeyModifier::commandKey) == 256 && static_cast<int>(::cmdKey) == 256);
static_assert(static_cast<int>(KeyModifier::shiftKey) == 512 && static_cast<int>(::shiftKey) == 512);
static_assert(static_cast<int>(KeyModifier::optionKey) == 2048 && static_cast<int>(::optionKey) == 2048);
static_assert(static_cast<int>(KeyModifier::controlKey) == 4096 && static_cast<int>(::controlKey) == 4096);
static_assert(hotkeySignature == 'ZVHK');
static_assert(kEventHotKeyPressed == 5);
static_assert(eventNotHandledErr == -9874);

/// Combinations through the Carbon event manager. What is held and wanted again keeps its
/// registration; the ids that the core sees are of its own pass.
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
        installHandler();
        auto before = std::exchange(m_held, {});
        m_idOfReference.clear();
        std::vector<bool> answers;
        for (auto const& chord : chords) {
            bool const isClaimed = !m_held.contains(chord) && hold(chord, before);
            if (isClaimed)
                m_idOfReference[m_held.at(chord).number] = firstID++;
            answers.push_back(isClaimed);
        }
        for (auto const& [chord, registration] : before)
            UnregisterEventHotKey(registration.reference);
        return answers;
    }

    void releaseAll() override
    {
        for (auto const& [chord, registration] : m_held)
            UnregisterEventHotKey(registration.reference);
        m_held.clear();
        m_idOfReference.clear();
    }

    HotkeySupport support() const override { return HotkeySupport::everywhere; }

private:
    struct Registration {
        EventHotKeyRef reference = nullptr;
        UInt32 number = 0; ///< what the system hands back
    };

    bool hold(KeyChord chord, std::map<KeyChord, Registration>& before)
    {
        if (auto const kept = before.extract(chord); !kept.empty()) {
            m_held.emplace(chord, kept.mapped());
            return true;
        }
        Registration made;
        made.number = m_nextNumber++;
        EventHotKeyID const identity { hotkeySignature, made.number };
        OSStatus const status = RegisterEventHotKey(chord.keyCode, chord.modifiers, identity, GetEventDispatcherTarget(), 0, &made.reference);
        if (status != noErr || !made.reference)
            return false;
        m_held.emplace(chord, made);
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

    /// A press while a menu of ours was open is queued and comes when it closes: the menu
    /// has had it already.
    void pressed(UInt32 number, double time)
    {
        auto const found = m_idOfReference.find(number);
        bool const wasForMenu = m_tracking.isOpen || time <= m_tracking.lastClosed;
        if (found != m_idOfReference.end() && onPressed && !wasForMenu)
            onPressed(HotkeyID { found->second });
    }

    MenuTracking const& m_tracking;
    EventHandlerRef m_handler = nullptr;
    UInt32 m_nextNumber = 1;
    std::map<KeyChord, Registration> m_held;
    std::map<UInt32, HotkeyID> m_idOfReference;
};

} // namespace

std::unique_ptr<HotkeyRegistrar> makeHotkeyRegistrar(MenuTracking const& tracking)
{
    return std::make_unique<CarbonHotkeyRegistrar>(tracking);
}

} // namespace zv
