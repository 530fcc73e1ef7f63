#pragma once

#include "app/model/MenuItemKind.h"
#include "base/Lifetime.h"
#include "base/Result.h"
#include "platform/session/ScriptRunner.h"

#include <functional>
#include <optional>
#include <string>

namespace zv {

/// Runs the fixed scripts that control the desktop. Main thread only.
class SystemEventsBridge {
public:
    struct Failure {
        enum class Case { scriptError, notPermitted };
        Case reason = Case::scriptError;
        std::string message {}; ///< of scriptError

        [[nodiscard]] static Failure scriptError(std::string message) { return { Case::scriptError, std::move(message) }; }
        /// The failure as text: scriptError("…").
        [[nodiscard]] std::string description() const;
        friend bool operator==(Failure const&, Failure const&) = default;
    };
    using Done = std::function<void(Result<void, Failure>)>;

    /// `tellsUser` announces the next step; it gives false when the user declines.
    SystemEventsBridge(ScriptRunner& runner, std::function<bool()> tellsUser)
        : m_runner(runner)
        , m_tellsUser(std::move(tellsUser))
    {
    }

    /// The kind's script; empty if it has none.
    [[nodiscard]] static std::optional<Script> scriptFor(MenuItemKind const& kind);
    /// For the five Dock kinds only.
    [[nodiscard]] static std::optional<std::string> dockScript(MenuItemKind const& kind);

    /// Calls `done` once: at once if the system answers at once, else later.
    void run(Script const& script, Done done);

private:
    void tellAndRunAgain(Script script, Done done);

    ScriptRunner& m_runner;
    std::function<bool()> m_tellsUser;
    Lifetime m_lifetime;
};

} // namespace zv
