#include "app/shell/RunningProgramTexts.h"
#include "base/Log.h"
#include "base/MainThread.h"
#include "cli/CommandLine.h"
#include "platform/linux/compose/LinuxCommands.h"
#include "platform/linux/compose/LinuxFrontEnd.h"
#include "platform/linux/compose/ProcessEnvironment.h"
#include "platform/linux/text/Collation.h"
#include "platform/linux/toolkit/DisplayServer.h"

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

int runCommand(std::vector<std::string> const& arguments, zv::Environment const& environment)
{
    std::ios::sync_with_stdio(false);
    zv::LinuxCommands commands({ std::cin, std::cout, std::cerr }, environment);
    return zv::runCommandLine(arguments, commands);
}

} // namespace

int main(int argc, char** argv)
{
    zv::markMainThread();
    auto environment = zv::processEnvironment();
    zv::useCollationOf(environment);
    if (argc > 1)
        return runCommand({ argv + 1, argv + argc }, environment);
    environment["QT_QPA_PLATFORM"] = zv::displayServerFor(environment);
    if (environment["QT_QPA_PLATFORM"].empty()) {
        zv::logLine(zv::noDisplayText);
        return 1;
    }
    ::setenv("QT_QPA_PLATFORM", environment["QT_QPA_PLATFORM"].c_str(), 1); // read by the toolkit
    zv::LinuxFrontEnd program(argc, argv, environment);
    return program.run();
}
