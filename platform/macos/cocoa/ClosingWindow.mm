#import "platform/macos/cocoa/ClosingWindow.h"

@implementation ZVClosingWindow

- (void)cancelOperation:(id)sender
{
    [self performClose:sender];
}

@end
