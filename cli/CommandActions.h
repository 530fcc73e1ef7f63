#pragma once

#include "app/actions/ActionAlerts.h"
#include "app/actions/MenuActions.h"
#include "cli/CountedWork.h"
#include "cli/EntryChooser.h"
#include "cli/MenuSession.h"
#include "platform/program/RunningProgram.h"
#include "platform/time/Clock.h"

#include <iosfwd>
#include <memory>

namespace zv {

/// What entries do when they are chosen from a terminal: the same as in the menu, with
/// standard error in the place of alerts.
class CommandActions : public EntryChooser {
public:
    /// All of it outlives the actions.
    struct Services {
        Workspace& workspace;
        DesktopCommands& desktop;
        ComputerInfo& computer;
        SessionEvents& sessionEvents;
        ScriptRunner& scripts;
        std::shared_ptr<ToolRunner> tools;
        RunningApplications& runningApplications;
        Tasks& tasks;
        WorkCount& pending; ///< what these services have not ended
        Clock const& clock;
        LocationServices locations;
        RunningProgram& program;
        std::ostream& out;
        MenuSession::TurnUntil turnUntil;
        Url itemsFolder;
    };

    explicit CommandActions(Services services);
    ~CommandActions() override;

    [[nodiscard]] MenuActions& commands();
    std::vector<std::string> choose(MenuEntry const& entry, ModifierMask held) override;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace zv
