#import "platform/macos/compose/MacFrontEnd.h"
#import "platform/macos/compose/MainMenu.h"

#include "base/MainThread.h"
#include "cli/CommandLine.h"
#import "platform/macos/compose/MacCommands.h"
#import "platform/macos/program/OwnExecutable.h"
#include "platform/macos/text/MessageCatalogue.h"

#include <iostream>

/// Passes the system's messages on to the program.
@interface ZVApplicationDelegate : NSObject <NSApplicationDelegate> {
    std::unique_ptr<zv::MacFrontEnd> _frontEnd;
}
- (void)openSettings:(id)sender;
@end

@implementation ZVApplicationDelegate

- (instancetype)init
{
    if ((self = [super init]))
        _frontEnd = std::make_unique<zv::MacFrontEnd>();
    return self;
}

- (void)applicationDidFinishLaunching:(NSNotification*)notification
{
    _frontEnd->launch();
}

- (BOOL)applicationShouldHandleReopen:(NSApplication*)application hasVisibleWindows:(BOOL)hasVisibleWindows
{
    _frontEnd->reopen();
    return YES;
}

- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication*)application
{
    return NO;
}

- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)application
{
    return YES;
}

- (void)openSettings:(id)sender
{
    _frontEnd->openSettings();
}

@end

namespace {

int runCommand(std::vector<std::string> const& arguments)
{
    zv::MacCommands commands({ std::cin, std::cout, std::cerr });
    return zv::runCommandLine(arguments, commands);
}

/// Runs the program; where it runs already, has it open its settings.
int runProgram()
{
    auto const post = zv::makeMessagePort();
    if (post->isRunning())
        return runCommand({ "settings" });
    NSApplication* const application = NSApplication.sharedApplication;
    static ZVApplicationDelegate* const delegate = [[ZVApplicationDelegate alloc] init]; // the application holds it weakly
    application.delegate = delegate;
    application.mainMenu = zv::makeMainMenu(delegate, @selector(openSettings:));
    [application run];
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    @autoreleasepool {
        zv::leaveLink(arguments);
        zv::markMainThread();
        zv::useMessageCatalogue();
        std::vector<std::string> const given(arguments + 1, arguments + count);
        return zv::asksForCommand(given) ? runCommand(given) : runProgram();
    }
}
