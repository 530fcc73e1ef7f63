#pragma once

#include "app/model/MenuShortcut.h"
#include "app/model/Preferences.h"
#include "app/settings/DesktopKeyRows.h"
#include "app/settings/LoginItem.h"
#include "app/settings/MenuFileCommands.h"
#include "app/settings/PermissionRows.h"
#include "app/settings/SettingsPage.h"
#include "app/settings/SettingsWording.h"
#include "app/updates/KresUpdater.h"
#include "platform/desk/Alerts.h"
#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/program/DesktopExtension.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The General tab. Each change acts at once. Reading the sections within withObservationTracking()
/// observes them, except the login item and the permissions, which the front end reads again when
/// the program becomes active. Main thread only.
class GeneralSettings {
public:
    struct Services {
        Preferences& preferences;
        LoginItem& loginItem;
        KresUpdater& updater;
        MenuFileCommands& menuFile;
        Alerts& alerts;
        SettingsWording wording;
        MenuShortcut& menuShortcut;
        /// Whether another program has the menu's shortcut.
        std::function<bool()> menuShortcutIsTaken;
        /// What a shortcut takes from other programs, a sentence.
        std::function<std::string(KeyEquivalentSpec const&)> shortcutWarning {};
        /// The reason why this desktop cannot show the status icon, a sentence; empty when it can.
        std::function<std::optional<std::string>()> statusItemProblem;
        /// The same for the overlay, and for shortcuts in other programs.
        std::function<std::optional<std::string>()> overlayProblem;
        std::function<std::optional<std::string>()> hotkeyProblem;
        /// The reason why the last change of the menu is not stored, a sentence.
        std::function<std::optional<std::string>()> saveProblem;
        Permissions const* permissions = nullptr; ///< null where the system asks for none
        std::function<void(std::string_view)> openSettingsPane {};
        /// The files that hold a combination by their name, with its text; and how to rename one without it.
        std::function<std::map<Url, std::string>()> fileShortcuts {};
        std::function<Result<void>(Url const&, Url const& renamed)> rename {};
        DesktopExtension* extension = nullptr; ///< null where no desktop has one
        DesktopKey* desktopKey = nullptr; ///< likewise
        std::function<HotkeySupport()> hotkeySupport {}; ///< empty where shortcuts always work; there beside a desktopKey
        /// The lines that give shortcuts by the desktop's own configuration, and how to copy them.
        std::function<std::vector<KeyBindingLine>()> bindingLines {};
        std::function<void(std::string const&)> copy {};
        /// Writes all that the user has made to a file that they choose.
        std::function<void()> exportAll {};
    };

    explicit GeneralSettings(Services services);

    [[nodiscard]] std::vector<SettingsSection> sections();

    /// Called after a row's action changed a value that cannot be observed.
    std::function<void()> onChanged;

private:
    [[nodiscard]] SettingsSection presence();
    void addMenuShortcut(SettingsSection& section);
    [[nodiscard]] std::string menuShortcutNote() const;
    [[nodiscard]] std::string warningOf(KeyEquivalentSpec const& spec) const;
    [[nodiscard]] SettingsSection login();
    [[nodiscard]] SettingsSection menus();
    void addKeys(SettingsSection& section);
    void addExtension(SettingsSection& section);
    void addBindingLines(SettingsSection& section);
    [[nodiscard]] SettingsSection fileShortcuts();
    void takeShortcutAway(Url const& file);
    [[nodiscard]] SettingsSection updates();
    [[nodiscard]] SettingsSection menuFile();
    void setOpensAtLogin(bool opens);
    void tellChanged() const;

    Services m_services;
    std::optional<DesktopKeyRows> m_desktopKey; ///< none where no desktop has one
};

} // namespace zv
