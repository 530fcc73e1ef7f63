#include "platform/linux/hotkeys/LinuxHotkeys.h"

#include "platform/linux/hotkeys/PortalHotkeyRegistrar.h"
#include "platform/linux/hotkeys/XcbHotkeyRegistrar.h"
#include "platform/linux/hotkeys/XkbKeyboardLayoutSource.h"
#include "platform/linux/x11/X11Connection.h"

namespace zv {

namespace {

/// The layout without an X server, which alone tells the selected one: that of the environment,
/// else the usual one.
class FixedLayout : public KeyboardLayoutSource {
public:
    std::vector<KeyTexts> layers() override
    {
        auto const keymap = XkbKeymap::named(nullptr);
        return keymap ? keymap->layers(0) : std::vector<KeyTexts>();
    }
};

class NoHotkeys : public HotkeyRegistrar {
public:
    std::vector<bool> claimAll(HotkeyID, std::span<KeyChord const> chords) override { return std::vector<bool>(chords.size(), false); }
    void releaseAll() override { }
    HotkeySupport support() const override { return HotkeySupport::none; }
};

} // namespace

LinuxHotkeys::LinuxHotkeys(Timers& timers, QDBusConnection const& sessionBus, SessionKind session)
    : m_connection(X11Connection::open())
{
    auto const xkb = m_connection ? XkbExtension::setUp(*m_connection) : std::nullopt;
    auto keyboard = xkb ? std::make_unique<XkbKeyboardLayoutSource>(*m_connection, *xkb, timers) : nullptr;
    m_keyboard = keyboard.get();
    if (session == SessionKind::wayland) {
        m_layout = keyboard ? std::unique_ptr<KeyboardLayoutSource>(std::move(keyboard)) : std::make_unique<FixedLayout>();
        auto portal = std::make_unique<PortalHotkeyRegistrar>(sessionBus, timers, *m_layout);
        m_portal = portal.get();
        m_registrar = std::move(portal);
    } else if (keyboard) {
        m_registrar = std::make_unique<XcbHotkeyRegistrar>(*m_connection, *keyboard, timers);
        m_layout = std::move(keyboard);
    } else {
        m_layout = std::make_unique<FixedLayout>();
        m_registrar = std::make_unique<NoHotkeys>();
    }
}

LinuxHotkeys::~LinuxHotkeys() = default;

void LinuxHotkeys::useBus(QDBusConnection const& bus)
{
    if (m_portal)
        m_portal->useBus(bus);
}

KeyOnLayout LinuxHotkeys::keyOnLayout(std::uint32_t xKeycode)
{
    auto const layers = m_keyboard ? m_keyboard->layers() : std::vector<KeyTexts>();
    for (std::uint16_t code = 0; !layers.empty() && code < keyCodeCount; ++code) {
        if (m_keyboard->keycode(code) == xKeycode)
            return { code, layers.front()[code] };
    }
    return {};
}

HotkeySupport LinuxHotkeys::support(QDBusConnection const& sessionBus, SessionKind session)
{
    if (session == SessionKind::wayland)
        return PortalHotkeyRegistrar::isThere(sessionBus) ? HotkeySupport::askingTheUser : HotkeySupport::none;
    auto const x = X11Connection::open();
    return x && XkbExtension::setUp(*x) ? HotkeySupport::everywhere : HotkeySupport::none;
}

} // namespace zv
