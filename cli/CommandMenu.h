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
    Looks looks; ///< terminal cells, and names of icons
    WorkCount& pending; ///< unfinished work of the system's own parts
    MenuSession::TurnUntil turnUntil;
};

/// Menus without a display, and their actions: lists are filled as usual, nothing is drawn, and
/// standard error replaces alerts.
class CommandMenu : public EntryChooser {
public:
    /// All arguments outlive the menu.
    CommandMenu(TurningSystem const& over, Preferences const& preferences, RunningProgram& program, std::ostream& out);
    CommandMenu(CommandMenu const&) = delete;
    CommandMenu& operator=(CommandMenu const&) = delete;

    [[nodiscard]] MenuSession& session() { return m_session; }
    /// Menus that open from now on find the keys held.
    void hold(ModifierMask keys) { m_terminal.hold(keys); }
    std::vector<std::string> choose(MenuEntry const& entry, ModifierMask held) override;

private:
    /// Ignores hotkeys: they belong to the running program.
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
