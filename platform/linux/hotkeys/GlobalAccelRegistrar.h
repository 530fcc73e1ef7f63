#pragma once

#include "platform/linux/hotkeys/ChordRegistrar.h"
#include "platform/menubar/KeyboardLayoutSource.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QString>

#include <functional>
#include <memory>

class QDBusMessage;

namespace zv {

class BusListener;

/// Hotkeys by KDE's own service, which needs no word of the user's and tells at once what
/// another program holds. Main thread only.
class GlobalAccelRegistrar : public ChordRegistrar {
public:
    /// The text that a key types with Shift; empty for none.
    using ShiftedText = std::function<std::string(std::uint16_t keyCode)>;

    /// The layout outlives this.
    GlobalAccelRegistrar(QDBusConnection const& bus, KeyboardLayoutSource& layout, ShiftedText shifted);
    ~GlobalAccelRegistrar() override;

    /// Whether the service runs.
    [[nodiscard]] static bool isThere(QDBusConnection const& bus);
    /// Claims on a new connection, after the former was lost.
    void useBus(QDBusConnection const& bus);

protected:
    bool claim(KeyChord chord) override;
    void release(KeyChord chord) override;

private:
    void listen();
    void heard(QDBusMessage const& message);
    [[nodiscard]] QDBusMessage call(char const* method, QVariantList const& arguments) const;
    [[nodiscard]] int keyOf(KeyChord chord) const;

    QDBusConnection m_bus;
    KeyboardLayoutSource& m_layout;
    ShiftedText m_shifted;
    std::unique_ptr<BusListener> m_presses;
    QDBusServiceWatcher m_service;
};

} // namespace zv
