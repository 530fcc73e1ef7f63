#pragma once

#include "platform/linux/hotkeys/RecordedKeys.h"
#include "platform/linux/toolkit/DisplayServer.h"
#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/menubar/KeyboardLayoutSource.h"
#include "platform/time/Timers.h"

#include <QDBusConnection>

#include <memory>

namespace zv {

class X11Connection;
class PortalHotkeyRegistrar;
class XkbKeyboardLayoutSource;

/// The session's hotkeys: X11's grabs, on Wayland the desktop's portal, else none, each with a
/// keyboard layout. Made after the application object.
class LinuxHotkeys {
public:
    /// The timers outlive this.
    LinuxHotkeys(Timers& timers, QDBusConnection const& sessionBus, SessionKind session);
    ~LinuxHotkeys();
    LinuxHotkeys(LinuxHotkeys const&) = delete;
    LinuxHotkeys& operator=(LinuxHotkeys const&) = delete;

    [[nodiscard]] HotkeyRegistrar& registrar() { return *m_registrar; }
    [[nodiscard]] KeyboardLayoutSource& layout() { return *m_layout; }

    /// Asks the portal on a new connection, after the former was lost.
    void useBus(QDBusConnection const& bus);

    /// The key with that X key code in the current layout.
    [[nodiscard]] KeyOnLayout keyOnLayout(std::uint32_t xKeycode);

    /// The support that an instance would find, without making one; for `doctor`.
    [[nodiscard]] static HotkeySupport support(QDBusConnection const& sessionBus, SessionKind session);

private:
    std::unique_ptr<X11Connection> m_connection; ///< null without an X server
    std::unique_ptr<KeyboardLayoutSource> m_layout;
    XkbKeyboardLayoutSource* m_keyboard = nullptr; ///< null without an X server
    std::unique_ptr<HotkeyRegistrar> m_registrar;
    PortalHotkeyRegistrar* m_portal = nullptr; ///< null on X11
};

} // namespace zv
