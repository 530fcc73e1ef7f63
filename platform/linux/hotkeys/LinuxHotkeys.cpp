#include "platform/linux/hotkeys/LinuxHotkeys.h"

#include "platform/linux/hotkeys/GlobalAccelRegistrar.h"
#include "platform/linux/hotkeys/GnomeHotkeyRegistrar.h"
#include "platform/linux/hotkeys/KeymapLayout.h"
#include "platform/linux/hotkeys/PortalHotkeyRegistrar.h"
#include "platform/linux/hotkeys/SwayHotkeyRegistrar.h"
#include "platform/linux/hotkeys/XcbHotkeyRegistrar.h"
#include "platform/linux/hotkeys/XkbKeyboardLayoutSource.h"
#include "platform/linux/toolkit/BusListener.h"
#include "platform/linux/x11/X11Connection.h"

#include <QDBusMessage>
#include <QGuiApplication>

namespace zv {

namespace {

constexpr int patience = 500; // milliseconds

class NoHotkeys : public HotkeyRegistrar {
public:
    std::vector<bool> claimAll(HotkeyID, std::span<KeyChord const> chords) override { return std::vector<bool>(chords.size(), false); }
    void releaseAll() override { }
    HotkeySupport support() const override { return HotkeySupport::none; }
};

/// An X server beside the compositor hears of the keyboard only while a window of its own has it.
bool isDrawnOnWayland() { return QGuiApplication::platformName().startsWith(QLatin1String("wayland")); }

bool isKde(Environment const& environment) { return valueOf(environment, "XDG_CURRENT_DESKTOP").find("KDE") != std::string::npos; }

/// Whether the desktop gives combinations without a word of the user's.
bool asksNobody(QDBusConnection const& bus, Environment const& environment)
{
    KeymapLayout unused;
    return (isKde(environment) && GlobalAccelRegistrar::isThere(bus)) || GnomeHotkeyRegistrar::isThere(bus)
        || SwayHotkeyRegistrar::open(valueOf(environment, "SWAYSOCK"), unused);
}

} // namespace

LinuxHotkeys::LinuxHotkeys(Timers& timers, QDBusConnection const& sessionBus, Environment const& environment)
    : m_connection(isDrawnOnWayland() ? nullptr : X11Connection::open())
    , m_told(std::make_unique<KeymapLayout>())
    , m_layout(m_told.get())
{
    if (auto const xkb = m_connection ? XkbExtension::setUp(*m_connection) : std::nullopt) {
        m_keyboard = std::make_unique<XkbKeyboardLayoutSource>(*m_connection, *xkb, timers);
        m_layout = m_keyboard.get();
    }
    if (sessionKindOf(environment) == SessionKind::wayland)
        useWayland(timers, sessionBus, environment);
    else if (m_keyboard)
        m_registrar = std::make_unique<XcbHotkeyRegistrar>(*m_connection, *m_keyboard, timers);
    else
        m_registrar = std::make_unique<NoHotkeys>();
}

/// What asks the user nothing comes first.
void LinuxHotkeys::useWayland(Timers& timers, QDBusConnection const& sessionBus, Environment const& environment)
{
    if (isKde(environment) && GlobalAccelRegistrar::isThere(sessionBus)) {
        auto const shifted = [this](std::uint16_t key) { return m_told->keymap() ? m_told->keymap()->shiftedText(key) : std::string(); };
        auto accel = std::make_unique<GlobalAccelRegistrar>(sessionBus, *m_layout, shifted);
        m_onBus = accel.get();
        m_registrar = std::move(accel);
        followKde(sessionBus);
    } else if (auto sway = SwayHotkeyRegistrar::open(valueOf(environment, "SWAYSOCK"), *m_layout)) {
        useLayout(sway->layout().value_or(0));
        sway->onLayout = [this](auto number) { useLayout(number); };
        m_registrar = std::move(sway);
    } else if (GnomeHotkeyRegistrar::isThere(sessionBus)) {
        auto gnome = std::make_unique<GnomeHotkeyRegistrar>(sessionBus, *m_layout);
        m_onBus = gnome.get();
        m_registrar = std::move(gnome);
    } else {
        auto portal = std::make_unique<PortalHotkeyRegistrar>(sessionBus, timers, *m_layout, valueOf(environment, "XDG_CURRENT_DESKTOP"));
        m_portal = portal.get();
        m_registrar = std::move(portal);
    }
}

/// KWin tells the selected layout whoever has the keyboard: https://invent.kde.org/plasma/kwin, src/keyboard_layout.cpp
void LinuxHotkeys::followKde(QDBusConnection const& bus)
{
    auto const name = QStringLiteral("org.kde.keyboard"), path = QStringLiteral("/Layouts"), interface = QStringLiteral("org.kde.KeyboardLayouts");
    m_layouts = std::make_unique<BusListener>(
        bus, name, path, interface, QStringLiteral("layoutChanged"), [this](QDBusMessage const& message) { useLayout(message.arguments().value(0).toUInt()); });
    auto const answer = bus.call(QDBusMessage::createMethodCall(name, path, interface, QStringLiteral("getLayout")), QDBus::Block, patience);
    useLayout(answer.arguments().value(0).toUInt());
}

LinuxHotkeys::~LinuxHotkeys() = default;

void LinuxHotkeys::useBus(QDBusConnection const& bus)
{
    if (m_portal)
        m_portal->useBus(bus);
    if (m_onBus)
        m_onBus->useBus(bus);
    if (m_layouts)
        followKde(bus);
}

void LinuxHotkeys::useKeymap(std::string const& text)
{
    if (auto keymap = XkbKeymap::fromText(text))
        m_told->use(std::move(*keymap));
}

void LinuxHotkeys::useLayout(std::uint32_t number) { m_told->useGroup(number); }

KeyOnLayout LinuxHotkeys::keyOnLayout(std::uint32_t xKeycode)
{
    auto const layers = m_layout->layers();
    for (std::uint16_t code = 0; !layers.empty() && code < keyCodeCount; ++code) {
        auto const known = m_keyboard ? m_keyboard->keycode(code) : m_told->keymap() ? m_told->keymap()->keycodes()[code] : std::uint8_t { 0 };
        if (known != 0 && known == xKeycode)
            return { code, layers.front()[code] };
    }
    return {};
}

HotkeySupport LinuxHotkeys::support(QDBusConnection const& sessionBus, Environment const& environment)
{
    if (sessionKindOf(environment) == SessionKind::wayland) {
        if (asksNobody(sessionBus, environment))
            return HotkeySupport::everywhere;
        return PortalHotkeyRegistrar::isThere(sessionBus) ? HotkeySupport::askingTheUser : HotkeySupport::none;
    }
    auto const x = X11Connection::open();
    return x && XkbExtension::setUp(*x) ? HotkeySupport::everywhere : HotkeySupport::none;
}

} // namespace zv
