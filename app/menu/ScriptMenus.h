#pragma once

#include "app/menu/Menu.h"
#include "app/menu/OptionKey.h"
#include "app/menu/ScriptOutput.h"
#include "app/model/OwnItems.h"
#include "base/Lifetime.h"
#include "platform/session/ToolRunner.h"
#include "platform/session/Workspace.h"
#include "platform/time/Tasks.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zv {

/// What a script's last run gave.
struct ScriptResult {
    std::vector<ScriptEntry> entries;
    std::string problem; ///< a sentence; empty when all went well

    friend bool operator==(ScriptResult const&, ScriptResult const&) = default;
};

/// Runs the scripts of the user's script menus, each on a thread of its own and for ten seconds at most, and keeps what
/// they gave last. Main thread only.
class ScriptMenus {
public:
    using Done = std::function<void(ScriptResult const&)>;
    /// All outlive this; the runner lives until the last script has ended.
    struct Services {
        std::shared_ptr<ToolRunner> tools;
        Tasks& tasks;
        Workspace& workspace;
        OwnItems const& ownItems;
    };

    explicit ScriptMenus(Services services)
        : m_services(std::move(services))
    {
    }

    [[nodiscard]] bool isScriptMenu(Url const& file) const { return m_services.ownItems.isScriptMenu(file); }
    /// Null before the first run has ended.
    [[nodiscard]] ScriptResult const* last(Url const& script) const;
    /// Runs it, unless it is running. Calls `done` later, if the result is not the last one.
    void run(Url const& script, Done done = {});
    /// The menu's entries for the result.
    [[nodiscard]] std::vector<MenuEntry> entriesFor(Url const& script, ScriptResult const& result, OptionKey option);

private:
    void finished(Url const& script, ScriptResult result);
    [[nodiscard]] std::vector<MenuEntry> entriesFor(Url const& script, std::vector<ScriptEntry> const& lines, OptionKey option);
    [[nodiscard]] MenuEntry entryFor(Url const& script, ScriptEntry const& line, OptionKey option);
    void perform(Url const& script, ScriptEntry const& line);
    void runProgram(Url const& script, ScriptEntry const& line);

    Services m_services;
    std::map<Url, ScriptResult> m_last;
    std::map<Url, std::vector<Done>> m_running;
    Lifetime m_lifetime;
};

} // namespace zv
