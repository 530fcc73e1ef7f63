#include "app/shell/RunningProgramTexts.h"

namespace zv {

RunningProgram::Texts runningProgramTexts()
{
    return {
        .noConnection = "There is no session bus to reach the running program by.",
        .notRunning = "Zanthe Vell is not running.",
        .refused = [](std::string const& reason) { return "The running program did not do it: " + reason; },
    };
}

} // namespace zv
