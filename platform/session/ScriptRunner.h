#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace zv {

/// The purpose of a script, so that a system without its language can do the same.
enum class ScriptPurpose : std::uint8_t { forceQuit, lockScreen, dockMagnification, dockHiding, dockLeft, dockBottom, dockRight };

struct Script {
    ScriptPurpose purpose {};
    std::string source;
    bool userWasTold = false; ///< set when the script runs again after ScriptOutcome::State::mustTellUser
};

struct ScriptOutcome {
    enum class State : std::uint8_t {
        succeeded,
        notCompiled,
        failed,
        noEquivalent, ///< this desktop cannot serve the purpose
        mustTellUser, ///< the effect surprises a user who was not told before
    };
    State state = State::succeeded;
    std::optional<std::int64_t> errorNumber {}; ///< of a failure, when there is one
    std::optional<std::string> errorMessage {}; ///< of a failure: the system's own words
};

/// Runs short scripts that control the desktop. Main thread only.
class ScriptRunner {
public:
    virtual ~ScriptRunner() = default;
    /// Calls `done` once, on the main thread: before it returns, or later.
    virtual void run(Script const& script, std::function<void(ScriptOutcome)> done) = 0;
};

} // namespace zv
