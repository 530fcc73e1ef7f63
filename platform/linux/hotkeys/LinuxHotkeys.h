#pragma once

#include "platform/linux/hotkeys/RecordedKeys.h"
#include "platform/linux/toolkit/DisplayServer.h"
#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/menubar/KeyboardLayoutSource.h"
#include "platform/time/Timers.h"

#include <QDBusConnection>

#include <memory>
#include <string>

namespace zv {

class BusChordRegistrar;
class BusListener;
class KeymapLayout;
class X11Connection;
class PortalHotkeyRegistrar;
class XkbKeyboardLayoutSource;

/// The session's hotkeys, each with a keyboard layout: X11's grabs; on Wayland KDE's own service,
/// sway's connection, our extension of GNOME Shell, or the desktop's portal; else none. Made after the application object.
class LinuxHotkeys {
public:
    /// The timers outlive this.
    LinuxHotkeys(Timers& timers, QDBusConnection const& sessionBus, Environment const& environment);
    ~LinuxHotkeys();
    LinuxHotkeys(LinuxHotkeys const&) = delete;
    LinuxHotkeys& operator=(LinuxHotkeys const&) = delete;

    [[nodiscard]] HotkeyRegistrar& registrar() { return *m_registrar; }
    [[nodiscard]] KeyboardLayoutSource& layout() { return *m_layout; }

    /// Asks the portal or the desktop's service on a new connection, after the former was lost.
    void useBus(QDBusConnection const& bus);

    /// Take what the compositor tells of its keyboard, which counts where no X server tells: the text of a keymap,
    /// and the number of the layout in it that is selected.
    void useKeymap(std::string const& text);
    void useLayout(std::uint32_t number);

    /// The key with that X key code in the current layout.
    [[nodiscard]] KeyOnLayout keyOnLayout(std::uint32_t xKeycode);

    /// The support that an instance would find, without making one; for `doctor`.
    [[nodiscard]] static HotkeySupport support(QDBusConnection const& sessionBus, Environment const& environment);

private:
    void followKde(QDBusConnection const& bus);
    void useWayland(Timers& timers, QDBusConnection const& sessionBus, Environment const& environment);

    std::unique_ptr<X11Connection> m_connection; ///< null without an X server
    std::unique_ptr<XkbKeyboardLayoutSource> m_keyboard; ///< null without an X server
    std::unique_ptr<KeymapLayout> m_told; ///< the layout without one
    KeyboardLayoutSource* m_layout; ///< one of them
    std::unique_ptr<BusListener> m_layouts; ///< null but on KDE
    std::unique_ptr<HotkeyRegistrar> m_registrar;
    PortalHotkeyRegistrar* m_portal = nullptr; ///< null where it is not used, …
    BusChordRegistrar* m_onBus = nullptr; ///< … and so is this
};

} // namespace zv
