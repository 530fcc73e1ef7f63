#import "platform/macos/MacFrontEnd.h"
#import "platform/macos/MainMenu.h"

#include "base/MainThread.h"

/// Hands what the system tells the program on to it.
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

int main()
{
    @autoreleasepool {
        zv::markMainThread();
        NSApplication* const application = [NSApplication sharedApplication];
        static ZVApplicationDelegate* const delegate = [[ZVApplicationDelegate alloc] init]; // the application holds it weakly
        [application setDelegate:delegate];
        [application setMainMenu:zv::makeMainMenu(delegate, @selector(openSettings:))];
        [application run];
    }
    return 0;
}
