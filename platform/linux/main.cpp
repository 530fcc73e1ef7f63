#include "app/hotkeys/HotkeyCheck.h"
#include "app/menubar/OverlayCheck.h"
#include "base/MainThread.h"
#include "cli/CommandLine.h"
#include "platform/linux/CommandLineServices.h"
#include "platform/linux/qt/DisplayServer.h"
#include "platform/linux/qt/LinuxFrontEnd.h"
#include "platform/linux/qt/LinuxHotkeys.h"
#include "platform/linux/qt/OverlayFrontEnd.h"

#include <iostream>
#include <string>
#include <vector>

namespace {

int runCommand(std::vector<std::string> const& arguments)
{
    std::ios::sync_with_stdio(false);
    zv::CommandLineServices services({ std::cin, std::cout, std::cerr });
    services.addDesktopCheck([] { return zv::hotkeyCheck(zv::LinuxHotkeys::support()); });
    services.addDesktopCheck([] { return zv::overlayCheck(zv::OverlayFrontEnd::support()); });
    return zv::runCommandLine(arguments, services);
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
