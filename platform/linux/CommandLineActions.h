#pragma once

#include "app/actions/ActionAlerts.h"
#include "app/actions/LocationsMenu.h"
#include "app/actions/MenuActions.h"
#include "app/actions/ShortcutsMenu.h"
#include "cli/EntryChooser.h"
#include "cli/MenuSession.h"
#include "platform/RunningProgram.h"
#include "platform/linux/DesktopAccess.h"
#include "platform/linux/XdgDirectories.h"

#include <iosfwd>
#include <memory>

namespace zv {

/// What entries do when they are chosen from a terminal: the same as in the menu, with
/// standard error in the place of alerts.
class CommandLineActions : public EntryChooser {
public:
    struct Services {
        Tasks& tasks;
        Clock const& clock;
        LocationServices locations;
        RunningProgram& program;
        std::ostream& out;
        MenuSession::TurnUntil turnUntil;
        RunningApplications& running;
    };

    /// The services outlive this.
    CommandLineActions(Services services, DesktopAccess const& access, XdgDirectories const& directories);
    ~CommandLineActions() override;

    [[nodiscard]] MenuCommands& commands();
    [[nodiscard]] Workspace& workspace();
    [[nodiscard]] SubmenuFiller& shortcuts();
    [[nodiscard]] SubmenuFiller& locations();
    std::vector<std::string> choose(MenuEntry const& entry, ModifierMask held) override;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace zv
