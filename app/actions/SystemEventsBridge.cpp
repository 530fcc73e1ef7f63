#include "app/actions/SystemEventsBridge.h"

#include "base/MainThread.h"
#include "base/Translation.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace zv {

namespace {

// errAEEventNotPermitted of Apple's MacErrors.h. Key codes below are kVK_Escape and kVK_ANSI_Q of HIToolbox/Events.h;
// the terms are those of System Events' own dictionary.
constexpr std::int64_t notPermittedNumber = -1743;

struct KindScript {
    MenuItemKind::Case kind;
    ScriptPurpose purpose;
    std::string_view source;
};

constexpr KindScript kindScripts[] = {
    { MenuItemKind::forceQuit, ScriptPurpose::forceQuit, "tell application \"System Events\" to key code 53 using {command down, option down}" },
    { MenuItemKind::lockScreen, ScriptPurpose::lockScreen, "tell application \"System Events\" to key code 12 using {command down, control down}" },
    { MenuItemKind::dockMagnification, ScriptPurpose::dockMagnification,
        "tell application \"System Events\" to tell dock preferences\n    set magnification to not magnification\nend tell" },
    { MenuItemKind::dockHiding, ScriptPurpose::dockHiding,
        "tell application \"System Events\" to tell dock preferences\n    set autohide to not autohide\nend tell" },
    { MenuItemKind::dockPosLeft, ScriptPurpose::dockLeft,
        "tell application \"System Events\" to tell dock preferences\n    set screen edge to left\nend tell" },
    { MenuItemKind::dockPosBottom, ScriptPurpose::dockBottom,
        "tell application \"System Events\" to tell dock preferences\n    set screen edge to bottom\nend tell" },
    { MenuItemKind::dockPosRight, ScriptPurpose::dockRight,
        "tell application \"System Events\" to tell dock preferences\n    set screen edge to right\nend tell" },
};

bool isDockPurpose(ScriptPurpose purpose) { return purpose >= ScriptPurpose::dockMagnification; }

SystemEventsBridge::Failure failureFor(ScriptOutcome const& outcome)
{
    using Failure = SystemEventsBridge::Failure;
    using State = ScriptOutcome::State;
    auto const number = outcome.errorNumber.value_or(0);
    if (outcome.state == State::notCompiled)
        return Failure::scriptError(tr("could not compile script"));
    if (outcome.state == State::noEquivalent)
        return Failure::scriptError(tr("this desktop has no equivalent"));
    if (number == notPermittedNumber)
        return Failure { Failure::Case::notPermitted };
    return Failure::scriptError(outcome.errorMessage.value_or(tr("unknown error %1", std::to_string(number))));
}

Result<void, SystemEventsBridge::Failure> resultOf(ScriptOutcome const& outcome)
{
    if (outcome.state == ScriptOutcome::State::succeeded)
        return {};
    return Failure { failureFor(outcome) };
}

} // namespace

std::string SystemEventsBridge::Failure::description() const { return reason == Case::notPermitted ? "notPermitted" : "scriptError(\"" + message + "\")"; }

std::optional<Script> SystemEventsBridge::scriptFor(MenuItemKind const& kind)
{
    auto const* const found = std::find_if(std::begin(kindScripts), std::end(kindScripts), [&](auto const& script) { return kind == script.kind; });
    if (found == std::end(kindScripts))
        return std::nullopt;
    return Script { found->purpose, std::string(found->source) };
}

std::optional<std::string> SystemEventsBridge::dockScript(MenuItemKind const& kind)
{
    auto const script = scriptFor(kind);
    return script && isDockPurpose(script->purpose) ? std::optional(script->source) : std::nullopt;
}

void SystemEventsBridge::run(Script const& script, Done done)
{
    assertMainThread();
    m_runner.run(script, m_lifetime.guard([this, script, done = std::move(done)](auto const& outcome) {
        if (outcome.state == ScriptOutcome::State::mustTellUser && !script.userWasTold)
            tellAndRunAgain(script, done);
        else
            done(resultOf(outcome));
    }));
}

void SystemEventsBridge::tellAndRunAgain(Script script, Done done)
{
    if (!m_tellsUser())
        return done({});
    script.userWasTold = true;
    run(script, std::move(done));
}

} // namespace zv
