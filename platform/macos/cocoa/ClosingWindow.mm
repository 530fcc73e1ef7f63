#import "platform/macos/cocoa/ClosingWindow.h"

@implementation ZVClosingWindow

- (void)cancelOperation:(nullable id)sender
{
    [self performClose:sender];
}

@end
