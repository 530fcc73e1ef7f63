#pragma once

#include "app/hotkeys/HotkeyTarget.h"
#include "app/hotkeys/KeyboardLayout.h"
#include "app/model/KeyEquivalentSpec.h"
#include "app/model/MenuItem.h"
#include "app/model/MenuStore.h"
#include "base/Observation.h"
#include "platform/menubar/HotkeyRegistrar.h"

#include <compare>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zv {

/// Makes every shortcut of the menu and of file names a system-wide hotkey, calls back when one is
/// pressed, and records conflicts. Main thread only.
class HotkeyCenter : public MenuItemsSink {
public:
    using Target = HotkeyTarget;

    struct Registration {
        Target target;
        std::string shortcut; ///< glyph text, such as "⌥⌘E"
    };

    /// A shortcut that is not registered: another program has it, or an earlier target of ours.
    struct Conflict {
        Target target;
        std::string shortcut;
        friend bool operator==(Conflict const&, Conflict const&) = default;
        friend std::strong_ordering operator<=>(Conflict const& a, Conflict const& b)
        {
            auto const byTarget = a.target <=> b.target;
            return byTarget != 0 ? byTarget : a.shortcut.compare(b.shortcut) <=> 0;
        }
    };

    /// A shortcut that no key press triggers here, and that is in nobody's way.
    struct Unavailable {
        enum class Reason { notOnLayout, keptBySystem };
        Target target;
        std::string shortcut;
        Reason reason;
    };

    /// By id.
    using Registrations = std::vector<std::pair<HotkeyID, Registration>>;

    /// Both outlive this.
    HotkeyCenter(HotkeyRegistrar& registrar, KeyboardLayout& layout);
    ~HotkeyCenter() override;
    HotkeyCenter(HotkeyCenter const&) = delete;
    HotkeyCenter& operator=(HotkeyCenter const&) = delete;

    /// The setters do not register: call reregister() once all is set. The list outlives this, and whoever changes it
    /// says so by menuItemsChanged().
    void setMenuItems(std::vector<MenuItem> const& items);
    void setMenuItems(std::vector<MenuItem>&& items) = delete;
    void setMenuShortcut(std::optional<KeyEquivalentSpec> shortcut);
    void setFileHotkeys(std::map<Url, KeyEquivalentSpec> hotkeys);
    [[nodiscard]] std::vector<MenuItem> const& menuItems() const { return *m_menuItems; }
    /// Sets the items, and registers again where their shortcuts differ or one was refused.
    void menuItemsChanged(std::vector<MenuItem> const& items) override;

    /// Registers everything anew: the menu's own, items depth first, then files by path. Ids keep rising, so that a
    /// press under an earlier pass's id finds nothing.
    void reregister();
    /// Registers again if another program had a shortcut, as that program may have ended.
    void retryRefused();
    void unregisterAll();
    /// Releases all hotkeys until resume(), whatever registers anew meanwhile: while a shortcut is
    /// recorded, every combination must reach the recorder.
    void pause();
    void resume();

    [[nodiscard]] Registrations const& registrations() const { return m_registrations; }
    /// The files whose combination is registered, with its text. Reading these or the conflicts within
    /// withObservationTracking() observes them.
    [[nodiscard]] std::map<Url, std::string> registeredFiles() const;
    [[nodiscard]] std::set<Conflict> const& conflicts() const;

    [[nodiscard]] std::vector<Unavailable> const& unavailable() const { return m_unavailable; }

    /// How far hotkeys work on this desktop. Reading it within withObservationTracking() observes it.
    [[nodiscard]] HotkeySupport support() const;

    /// What the user may write into the desktop's configuration, where nothing else gives shortcuts: a line for
    /// each of them; without any, that of the menu. Empty elsewhere.
    [[nodiscard]] std::vector<KeyBindingLine> bindingLines() const;
    /// One that opens the menu, by a key that is likely to be free.
    [[nodiscard]] std::optional<KeyBindingLine> bindingOfShow() const { return m_registrar.bindingLine(chordOfShow, commandOfShow); }

    /// Called when a hotkey is pressed.
    std::function<void(Target const&)> onTrigger;
    /// Called before each pass, to bring the files up to date by setFileHotkeys(). Set by its one user.
    std::function<void()> beforePass;
    /// Called after registrations and conflicts were made anew.
    std::function<void()> onRegistered;

private:
    struct Wanted {
        Target target;
        std::string shortcut;
        KeyChord chord;
    };
    struct Pass;
    /// The items that get a hotkey, in the menu's order.
    using ItemShortcuts = std::vector<std::pair<Uuid, KeyEquivalentSpec>>;

    static void collectItems(std::vector<MenuItem> const& items, ItemShortcuts& shortcuts);
    void collectFiles(Pass& pass);
    void collect(Target target, KeyEquivalentSpec const& spec, Pass& pass);
    void claim(std::vector<Wanted> wanted, std::set<Conflict>& conflicts);
    void setConflicts(std::set<Conflict> conflicts);
    void noteRegisteredFiles(std::map<Url, std::string> const& before);
    void tellRegistered() const;
    void noteSupport();
    void listen();
    void pressed(HotkeyID id);
    [[nodiscard]] HotkeyID takeID();
    [[nodiscard]] std::optional<KeyChord> chordFor(KeyEquivalentSpec const& spec);

    HotkeyRegistrar& m_registrar;
    KeyboardLayout& m_layout;
    std::set<Conflict> m_conflicts;
    Registrations m_registrations;
    std::vector<Unavailable> m_unavailable;
    std::vector<Wanted> m_unsupported; ///< what would be claimed where that is possible
    bool m_wasRefused = false; ///< another program has one of the shortcuts
    bool m_listens = false;
    bool m_isPaused = false;
    HotkeyID m_nextHotKeyID = 1;
    std::optional<KeyEquivalentSpec> m_menuShortcut;
    std::vector<MenuItem> const* m_menuItems;
    ItemShortcuts m_itemShortcuts; ///< of the last pass
    bool m_isCurrent = false; ///< what was set was registered
    std::map<Url, KeyEquivalentSpec> m_fileHotkeys;
    HotkeySupport m_support;
    ObservationRegistrar m_observers;
};

} // namespace zv
