#include "cli/PortRunningProgram.h"

#include "app/shell/RunningProgramTexts.h"

namespace zv {

namespace {

using Kind = ProgramMessage::Kind;

} // namespace

ProgramAnswer PortRunningProgram::ask(ProgramMessage const& request, Starting starting)
{
    if (!m_post.isRunning()) {
        if (starting == Starting::forbidden)
            return Failure { runningProgramTexts().notRunning };
        if (auto failure = m_post.start())
            return Failure { "Zanthe Vell could not be started: " + *failure };
    }
    auto const text = m_post.ask(encoded(request));
    if (!text)
        return Failure { std::string("The running program did not answer.") };
    auto answer = decodedAnswer(*text);
    if (!answer)
        return Failure { std::string("The running program gave an answer that is none.") };
    return *answer ? *answer : Failure { runningProgramTexts().refused(answer->error()) };
}

MaybeFailure<> PortRunningProgram::tell(ProgramMessage const& request, Starting starting)
{
    auto const answer = ask(request, starting);
    return answer ? std::nullopt : std::optional(answer.error());
}

MaybeFailure<> PortRunningProgram::showMenu(std::optional<ScreenPoint> at) { return tell({ Kind::showMenu, at }, Starting::allowed); }

MaybeFailure<> PortRunningProgram::openSettings() { return tell({ Kind::openSettings }, Starting::allowed); }

MaybeFailure<> PortRunningProgram::quit() { return tell({ Kind::quit }, Starting::forbidden); }

MaybeFailure<> PortRunningProgram::addFiles(std::vector<Url> const& files) { return tell({ Kind::addFiles, {}, files }, Starting::forbidden); }

Result<std::string> PortRunningProgram::hotkeys() { return ask({ Kind::hotkeys }, Starting::forbidden); }

Result<std::string> PortRunningProgram::findings() { return ask({ Kind::findings }, Starting::forbidden); }

} // namespace zv
