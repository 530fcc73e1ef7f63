#pragma once

#include "platform/linux/hotkeys/VirtualKeys.h"
#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/menubar/KeyboardLayoutSource.h"
#include "platform/time/Timers.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <map>
#include <memory>
#include <set>
#include <string>

class QDBusMessage;

namespace zv {

class BusListener;

/// Hotkeys through the desktop's portal for global shortcuts, for desktops where programs cannot
/// grab keys. The user confirms them, so a refusal is known late: until then a claim counts as
/// held. Serves nothing while no portal answers. Main thread only.
class PortalHotkeyRegistrar : public HotkeyRegistrar {
public:
    /// Timers and layout outlive this. `desktopNames` are the session's.
    PortalHotkeyRegistrar(QDBusConnection const& bus, Timers& timers, KeyboardLayoutSource& layout, std::string desktopNames = {});
    ~PortalHotkeyRegistrar() override;

    [[nodiscard]] std::vector<bool> claimAll(HotkeyID firstID, std::span<KeyChord const> chords) override;
    void releaseAll() override;
    [[nodiscard]] HotkeySupport support() const override { return m_support; }
    [[nodiscard]] bool isKeptBySystem(KeyChord chord) const override { return switchesTerminal(chord); }

    [[nodiscard]] std::optional<KeyBindingLine> bindingLine(KeyChord chord, std::string const& command) const override;

    /// Asks the portal on a new connection, after the former was lost.
    void useBus(QDBusConnection const& bus);

    /// Asks the portal and waits briefly for its answer.
    [[nodiscard]] static bool isThere(QDBusConnection const& bus);

private:
    void sessionCreated(QDBusMessage const& message);
    void shortcutsBound(QDBusMessage const& message);
    void activated(QDBusMessage const& message);

    void listen();
    void portalChangedHands(QString const& newOwner);
    void introduce();
    void askForPortal();
    void bindSoon();
    void bind();
    void bindShortcuts();
    void closeSession();
    void refuse(std::set<KeyChord> refused);
    using Responded = void (PortalHotkeyRegistrar::*)(QDBusMessage const& message);
    /// The options of a request whose response comes to `responded`.
    [[nodiscard]] QVariantMap request(Responded responded);
    void call(char const* method, QVariantList const& arguments);
    [[nodiscard]] QString trigger(KeyChord chord);

    QDBusConnection m_bus;
    Timers& m_timers;
    KeyboardLayoutSource& m_layout;
    std::string m_desktopNames;
    HotkeySupport m_support = HotkeySupport::none;
    std::set<KeyChord> m_wanted;
    std::set<KeyChord> m_refused;
    std::map<QString, std::pair<KeyChord, HotkeyID>> m_held; ///< by the shortcut's name in the portal
    std::unique_ptr<Timer> m_pendingBind;
    QString m_session;
    int m_serial = 0;
    std::unique_ptr<BusListener> m_activations;
    std::unique_ptr<BusListener> m_response; ///< response to the pending request
    std::unique_ptr<QObject> m_context; ///< context of the pending calls
    QDBusServiceWatcher m_portal;
};

} // namespace zv
