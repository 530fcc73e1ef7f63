#pragma once

#include "app/model/MenuBackups.h"
#include "app/model/MenuDocument.h"
#include "app/settings/MenuEditor.h"
#include "platform/desk/Alerts.h"
#include "platform/desk/FilePanels.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// Exports, imports, restores and resets the whole menu. A wrong file is reported with its first
/// wrong record and changes nothing; replacing the menu can be undone. Main thread only.
class MenuFileCommands {
public:
    struct Services {
        MenuEditor& editor;
        MenuBackups const& backups;
        FileSystem& files;
        LocationServices locations;
        FilePanels& panels;
        Alerts& alerts;
        std::function<bool(Url const&)> importsSetup {}; ///< takes a file that holds more than a menu; false for others
    };

    explicit MenuFileCommands(Services services)
        : m_services(services)
    {
    }

    void exportMenu();
    void importMenu();
    /// Newest first.
    [[nodiscard]] std::vector<MenuBackup> backups() const;
    /// Says what the backup holds, and asks; the next asks, too.
    void restoreBackup(MenuBackup const& backup);
    void restoreDefaultMenu();
    /// Whether the menu is still as a backup brought it back. Observed only where it was one.
    [[nodiscard]] bool isRestored() const { return m_restored && *m_restored == m_services.editor.items(); }
    void undoRestoring();

private:
    [[nodiscard]] std::optional<ImportedMenu> read(Url const& file);
    [[nodiscard]] bool confirms(std::string message, std::string informativeText, std::string button);
    void tell(std::string message, std::string const& informativeText);

    Services m_services;
    std::optional<std::vector<MenuItem>> m_restored;
};

} // namespace zv
