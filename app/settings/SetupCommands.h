#pragma once

#include "app/model/SetupTransfer.h"
#include "app/settings/MenuEditor.h"
#include "platform/desk/Alerts.h"
#include "platform/desk/FilePanels.h"
#include "platform/time/Clock.h"

#include <functional>
#include <string>

namespace zv {

/// Exports all that the user has made as one file, and takes such a file in after a question that says what it brings.
/// What was here before is kept as such a file. Main thread only.
class SetupCommands {
public:
    struct Services {
        MenuEditor& editor;
        FileSystem& files;
        FilePanels& panels;
        Alerts& alerts;
        Clock const& clock;
        Url backupsFolder;
        LocationServices locations;
        std::function<void()> preferencesChanged; ///< called after they were stored
    };

    SetupCommands(Services services, SetupTransfer::Services transfer);

    void exportAll();
    /// False, with nothing done, for a file that is no setup.
    [[nodiscard]] bool imports(Url const& file);

private:
    [[nodiscard]] bool confirms(Url const& file, Setup const& setup);
    void take(Setup setup);
    void tell(std::string message, std::string const& informativeText);

    Services m_services;
    SetupTransfer m_transfer;
};

} // namespace zv
