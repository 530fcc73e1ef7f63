#include "app/shell/RunningProgramTexts.h"
#include "base/Log.h"
#include "base/MainThread.h"
#include "cli/CommandLine.h"
#include "platform/linux/compose/DesktopScale.h"
#include "platform/linux/compose/LinuxCommands.h"
#include "platform/linux/compose/LinuxFrontEnd.h"
#include "platform/linux/compose/ProcessEnvironment.h"
#include "platform/linux/text/Collation.h"
#include "platform/linux/toolkit/DisplayServer.h"

#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace {

int runCommand(std::vector<std::string> const& arguments, zv::Environment const& environment)
{
    std::ios::sync_with_stdio(false);
    zv::LinuxCommands commands({ std::cin, std::cout, std::cerr }, environment);
    return zv::runCommandLine(arguments, commands);
}

/// Ends without the last acts of the libraries: a thread that still waits for a disk or a service may be in them, or be
/// loading one.
[[noreturn]] void end(int status)
{
    std::cout.flush();
    std::cerr.flush();
    std::_Exit(status);
}

int runProgram(char* name, zv::Environment const& environment)
{
    auto server = zv::displayServerFor(environment);
    if (server.empty()) {
        zv::logLine(zv::noDisplayText);
        return 1;
    }
    // Not by the environment, which all that is started from the menu inherits as it is.
    std::string option = "-platform";
    char* arguments[] = { name, option.data(), server.data(), nullptr };
    int count = 3;
    std::optional<zv::DesktopScale> scale(environment);
    zv::LinuxFrontEnd program(count, arguments, environment);
    scale.reset();
    return program.run();
}

} // namespace

int main(int argc, char** argv)
{
    zv::markMainThread();
    auto const environment = zv::processEnvironment();
    zv::useCollationOf(environment);
    end(argc > 1 ? runCommand({ argv + 1, argv + argc }, environment) : runProgram(argv[0], environment));
}
