#include "base/MainThread.h"
#include "cli/CommandLine.h"
#include "platform/linux/compose/LinuxCommands.h"
#include "platform/linux/compose/LinuxFrontEnd.h"
#include "platform/linux/toolkit/DisplayServer.h"

#include <iostream>
#include <string>
#include <vector>

namespace {

int runCommand(std::vector<std::string> const& arguments)
{
    std::ios::sync_with_stdio(false);
    zv::LinuxCommands commands({ std::cin, std::cout, std::cerr });
    return zv::runCommandLine(arguments, commands);
}

} // namespace

int main(int argc, char** argv)
{
    zv::markMainThread();
    if (argc > 1)
        return runCommand({ argv + 1, argv + argc });
    zv::chooseDisplayServer();
    zv::LinuxFrontEnd program(argc, argv);
    return program.run();
}
