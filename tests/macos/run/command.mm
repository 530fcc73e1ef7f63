/// The command line at work, a command a process, as on the Mac but without the application
/// around it. After --running the program answers at its message port in the same process,
/// and prints its requests.
#import "platform/macos/compose/MacCommands.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/program/MessagePortServer.h"

#include "app/doctor/MacChecks.h"
#include "base/MainThread.h"
#include "cli/CommandLine.h"

#include <iostream>

using namespace zv;

namespace {

int run(std::vector<std::string> const& arguments)
{
    MacCommands commands({ std::cin, std::cout, std::cerr });
    return runCommandLine(arguments, commands);
}

ProgramHandlers spokenHandlers()
{
    return {
        [](auto at) { std::cout << "shows its menu" << (at ? " at " + std::to_string(static_cast<int>(at->x)) : "") << std::endl; },
        [] { std::cout << "opens its settings" << std::endl; },
        [] { std::cout << "quits" << std::endl; },
        [](std::vector<Url> const& files) -> Result<void> { return Failure { std::to_string(files.size()) + " files are not taken." }; },
        [] { return std::string(R"({"registrations":[{"id":1,"shortcut":"F5","file":"/x"}],"conflicts":[]})"); },
        [] {
            auto found = surveyThisMac();
            found.running = MacProgramFindings { PermissionState::granted, PermissionState::refused, { "⌥⌘E" } };
            return encoded(found);
        },
    };
}

int runBesideTheProgram(std::vector<std::string> const& arguments)
{
    auto const tasks = makeTasks();
    MessagePortServer port([&](std::string const& request) { return answerTo(request, spokenHandlers(), *tasks); });
    if (!port.open())
        return 9;
    int const status = run(arguments);
    turnRunLoopUntil([] { return false; }, std::chrono::milliseconds(100));
    return status;
}

} // namespace

int main(int count, char** arguments)
{
    @autoreleasepool {
        [NSAutoreleasePool enableRelease:NO]; // these files rely on automatic reference counting
        markMainThread();
        std::vector<std::string> given(arguments + 1, arguments + count);
        if (given.empty() || given.front() != "--running")
            return run(given);
        given.erase(given.begin());
        return runBesideTheProgram(given);
    }
}
