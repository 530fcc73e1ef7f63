#include "cli/PortRunningProgram.h"

#include "app/shell/RunningProgramTexts.h"
#include "base/Translation.h"

namespace zv {

namespace {

using Kind = ProgramMessage::Kind;

} // namespace

ProgramAnswer PortRunningProgram::ask(ProgramMessage const& request, Starting starting)
{
    if (!m_post.isRunning()) {
        if (starting == Starting::forbidden)
            return Failure { runningProgramTexts().notRunning };
        if (auto const started = m_post.start(); !started)
            return Failure { tr("Zanthe Vell could not be started: %1", started.error()) };
    }
    auto const text = m_post.ask(encoded(request));
    if (!text)
        return Failure { tr("The running program did not answer.") };
    auto answer = decodedAnswer(*text);
    if (!answer)
        return Failure { tr("The running program gave an answer that is none.") };
    return *answer ? *answer : Failure { runningProgramTexts().refused(answer->error()) };
}

Result<void> PortRunningProgram::tell(ProgramMessage const& request, Starting starting)
{
    auto const answer = ask(request, starting);
    if (!answer)
        return Failure { answer.error() };
    return {};
}

Result<void> PortRunningProgram::showMenu(std::optional<ScreenPoint> at) { return tell({ Kind::showMenu, at }, Starting::allowed); }

Result<void> PortRunningProgram::openSettings() { return tell({ Kind::openSettings }, Starting::allowed); }

Result<void> PortRunningProgram::quit() { return tell({ Kind::quit }, Starting::forbidden); }

Result<void> PortRunningProgram::addFiles(std::vector<Url> const& files) { return tell({ Kind::addFiles, {}, files }, Starting::forbidden); }

Result<std::string> PortRunningProgram::hotkeys() { return ask({ Kind::hotkeys }, Starting::forbidden); }

Result<std::string> PortRunningProgram::findings() { return ask({ Kind::findings }, Starting::forbidden); }

} // namespace zv
