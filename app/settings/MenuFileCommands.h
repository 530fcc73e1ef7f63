#pragma once

#include "app/model/MenuBackups.h"
#include "app/settings/MenuEditor.h"
#include "platform/desk/Alerts.h"
#include "platform/desk/FilePanels.h"

#include <string>
#include <vector>

namespace zv {

/// Export, import, backups and reset of the whole menu, as the settings offer them. A wrong
/// file is told with its first wrong record and changes nothing; what replaces the menu can
/// be undone. Main thread only.
class MenuFileCommands {
public:
    struct Services {
        MenuEditor& editor;
        MenuBackups const& backups;
        FileSystem& files;
        LocationServices locations;
        FilePanels& panels;
        Alerts& alerts;
    };

    explicit MenuFileCommands(Services services)
        : m_services(services)
    {
    }

    void exportMenu();
    void importMenu();
    /// The newest first.
    [[nodiscard]] std::vector<MenuBackup> backups() const;
    void restoreBackup(MenuBackup const& backup);
    /// Asks first.
    void restoreDefaultMenu();

private:
    void replaceFrom(Url const& file, std::string const& editName);
    void tell(std::string message, std::string informativeText);

    Services m_services;
};

} // namespace zv
