// Code as the front end has it, some of it with a fault that the declarations beside it share.
#import <Cocoa/Cocoa.h>

#include "tests/macos/sdk/faults.h"

@interface ZVFaults : NSView <NSMenuDelegate> {
    NSMenu* _shown;
}
- (NSInteger)numberOfItems;
@end

@implementation ZVFaults
- (void)menuNeedUpdate:(NSMenu*)menu // fault: -[ZVFaults menuNeedUpdate:] is called by nobody
{
    [menu cancelTracking];
}
- (void)menu:(NSMenu*)menu willHighlight:(NSMenuItem*)item // fault: -[ZVFaults menu:willHighlight:] is called by nobody
{
}
- (void)menuWillOpen:(NSMenuItem*)menu // fault: parameter 1 is NSMenuItem *, in the SDK NSMenu
{
}
- (void)isFlipped // fault: gives void, in the SDK boolean
{
}
- (NSInteger)numberOfItems
{
    return [_shown numberOfItems];
}
- (void)drawRect:(NSRect)rect
{
    id anything = _shown;
    [_shown removeAllItemss]; // fault: -[NSMenu removeAllItemss] is not in the SDK
    [_shown separatorItem]; // fault: -[NSMenu separatorItem] is not in the SDK
    anything = @[ NSMenuItem.separatorItem, NSApp.mainMenu.title ];
    anything = NSMenuItem.badge; // fault: +[NSMenuItem badge] is not in the SDK but for objects
    [NSMenuItem badge]; // fault: +[NSMenuItem badge] is not in the SDK but for objects
    [_shown setMinimumWidth:@"wide"]; // fault: parameter 1 is NSString *, in the SDK number
    [anything removeAllItemss]; // fault: -[id removeAllItemss] is nowhere in the SDK
    NSMenuItem* item = [_shown itemAtIndex:[self numberOfItems]];
    [_shown setTitle:item.userKeyEquivalents]; // fault: -[NSMenuItem userKeyEquivalents] is not in the SDK
    item.hasSubmenu = item.hasSubmenu == YES; // fault: -[NSMenuItem setHasSubmenu:] is not in the SDK
    [[NSNotificationCenter defaultCenter] addObserver:self selector:@selector(menuGone:) name:nil object:nil]; // fault: the selector menuGone: is not in the SDK
    [self performSelector:NSSelectorFromString(@"menuGoes:")]; // fault: the selector menuGoes: is not in the SDK
    LMGetKbdType(NSWindowToolbarStyleUnified); // fault: LMGetKbdType() has 1 parameters
    NSLog(NSPasteboardTypeFileURLs); // fault: NSPasteboardTypeFileURLs is not in the SDK
#ifdef NSFoundationVersions // fault: the word NSFoundationVersions is not in the SDK
    [NSMenuHeading alloc]; // fault: the word NSMenuHeading is not in the SDK
#endif
    [super drawRect:rect];
}
@end
