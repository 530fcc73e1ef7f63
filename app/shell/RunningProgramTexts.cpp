#include "app/shell/RunningProgramTexts.h"

#include "base/Translation.h"

namespace zv {

RunningProgram::Texts runningProgramTexts()
{
    return {
        .noConnection = tr("There is no session bus to reach the running program by."),
        .notRunning = tr("Zanthe Vell is not running."),
        .refused = [](std::string const& reason) { return tr("The running program did not do it: %1", reason); },
    };
}

} // namespace zv
