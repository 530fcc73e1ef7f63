#pragma once

#include "app/model/Preferences.h"
#include "app/shell/Menus.h"
#include "cli/CountedWork.h"
#include "cli/EntryChooser.h"
#include "cli/MenuSession.h"
#include "cli/TerminalDesk.h"
#include "platform/program/RunningProgram.h"

#include <iosfwd>

namespace zv {

/// A system with a run loop that turns while a command waits.
struct TurningSystem {
    System const& system;
    Looks looks; ///< cells of a terminal, and names of pictures
    WorkCount& pending; ///< what the system's own parts have not ended
    MenuSession::TurnUntil turnUntil;
};

/// Menus without a display, and what their entries do: the lists are as they are, nothing is
/// drawn, and standard error stands for alerts.
class CommandMenu : public EntryChooser {
public:
    /// All of it outlives the menu.
    CommandMenu(TurningSystem const& over, Preferences const& preferences, RunningProgram& program, std::ostream& out);
    CommandMenu(CommandMenu const&) = delete;
    CommandMenu& operator=(CommandMenu const&) = delete;

    [[nodiscard]] MenuSession& session() { return m_session; }
    std::vector<std::string> choose(MenuEntry const& entry, ModifierMask held) override;

private:
    /// Hotkeys are the running program's.
    struct NoHotkeys : ListedFolderSink {
        void folderListed(Url const& /*folder*/, std::vector<DynamicEntry> const& /*withHotkeys*/) override { }
    };

    [[nodiscard]] System countedSystem(System const& system);

    WorkCount& m_pending;
    MenuSession::TurnUntil m_turnUntil;
    CountedTasks m_tasks;
    CountedRunningApplications m_running;
    System m_system;
    Looks m_looks;
    TerminalDesk m_terminal;
    Desk m_desk;
    NoHotkeys m_hotkeys;
    Menus m_menus;
    MenuSession m_session;
};

} // namespace zv
