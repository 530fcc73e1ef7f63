#pragma once

#include "platform/linux/hotkeys/ChordRegistrar.h"
#include "platform/menubar/KeyboardLayoutSource.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

#include <memory>

class QDBusMessage;

namespace zv {

class BusListener;

/// Hotkeys by our extension of GNOME Shell (packaging/linux/gnome-extension), which grabs them
/// and tells at once what somebody has already. Main thread only.
class GnomeHotkeyRegistrar : public ChordRegistrar {
public:
    /// The layout outlives this.
    GnomeHotkeyRegistrar(QDBusConnection const& bus, KeyboardLayoutSource& layout);
    ~GnomeHotkeyRegistrar() override;

    /// Whether the extension is switched on.
    [[nodiscard]] static bool isThere(QDBusConnection const& bus);
    /// Claims on a new connection, after the former was lost.
    void useBus(QDBusConnection const& bus);

protected:
    bool claim(KeyChord chord) override;
    void release(KeyChord chord) override;

private:
    void listen();

    QDBusConnection m_bus;
    KeyboardLayoutSource& m_layout;
    std::unique_ptr<BusListener> m_presses;
    QDBusServiceWatcher m_service;
};

} // namespace zv
