#pragma once

#include "app/actions/AddToItemsService.h"
#include "app/hotkeys/FileHotkeys.h"
#include "app/hotkeys/HotkeyCenter.h"
#include "app/hotkeys/KeyboardLayout.h"
#include "app/menubar/StatusItemController.h"
#include "app/model/ChosenEntries.h"
#include "app/model/MenuBackups.h"
#include "app/model/MenuShortcut.h"
#include "app/model/MenuStore.h"
#include "app/model/Preferences.h"
#include "app/settings/LoginItem.h"
#include "app/settings/SettingsModels.h"
#include "app/shell/Begging.h"
#include "app/shell/Menus.h"
#include "app/shell/SettingsOpener.h"
#include "app/updates/KresUpdater.h"
#include "base/Notifications.h"
#include "platform/System.h"

#include <memory>

namespace zv {

/// The running program's objects beside those that are stored; made on first use, after the
/// question whether to move. Main thread only.
class ProgramParts {
public:
    /// All references outlive the parts.
    struct Over {
        System const& system;
        Surface const& surface;
        Preferences& preferences;
        MenuShortcut& menuShortcut;
        MenuStore& store;
        MenuBackups const& backups;
        Begging& begging;
        SettingsOpener const& settings;
    };

    explicit ProgramParts(Over over);
    ~ProgramParts();
    ProgramParts(ProgramParts const&) = delete;
    ProgramParts& operator=(ProgramParts const&) = delete;

    [[nodiscard]] std::unique_ptr<StatusItemController> makeStatusItem();
    [[nodiscard]] HotkeyCenter& hotkeys() { return m_hotkeys; }
    [[nodiscard]] AddToItemsService& addToItems() { return m_addToItems; }
    [[nodiscard]] KresUpdater& updater() { return m_updater; }
    /// Created on first use.
    [[nodiscard]] SettingsModels& settingsModels();

private:
    [[nodiscard]] MenuActions::Shell actionShell();
    [[nodiscard]] EntryMenu::Shell entryShell();
    [[nodiscard]] std::function<void(std::vector<Url>)> filesDropped();
    [[nodiscard]] SettingsModels::Services settingsServices();
    [[nodiscard]] std::shared_ptr<void> makeOverlay(std::function<void(Point)> showMenu);

    Over m_over;
    LoginItem m_loginItem;
    KresUpdater m_updater;
    Notifications m_notifications;
    KeyboardLayout m_layout;
    HotkeyCenter m_hotkeys;
    FileHotkeys m_fileHotkeys;
    ChosenEntries m_chosen;
    Menus m_menus;
    AddToItemsService m_addToItems;
    std::unique_ptr<SettingsModels> m_settingsModels;
};

} // namespace zv
