#pragma once
// Declarations as compat/ and decl/ have them, some with a fault. The end of a line names the fault to be found.
@interface NSMenu (Faults)
- (void)removeAllItemss; // fault: -[NSMenu removeAllItemss] is not in the SDK
- (NSMenuItem*)separatorItem; // fault: -[NSMenu separatorItem] is not in the SDK; NSMenuItem has it
- (void)setMinimumWidth:(NSString*)width; // fault: parameter 1 is NSString *, in the SDK number
- (void)cancelTracking;
@end
@interface NSMenuItem (Faults)
- (NSMenuItem*)separatorItem; // fault: gives NSMenuItem *, in the SDK boolean
+ (NSImage*)badge; // fault: +[NSMenuItem badge] is not in the SDK but for objects
@property (copy) NSString* userKeyEquivalents; // fault: userKeyEquivalents
@property BOOL hasSubmenu; // fault: -[NSMenuItem setHasSubmenu:] is not in the SDK
@end
@interface NSComboButton : NSMenu // fault: the superclass NSComboButton: NSMenu is not in the SDK
@end
@interface NSMenuHeading : NSObject // fault: the class NSMenuHeading is not in the SDK
@end
@protocol NSMenuDelegates // fault: the protocol NSMenuDelegates is not in the SDK
@end
enum { NSWindowToolbarStyleUnified = 4, NSWindowToolbarStyleCompact = 4 }; // fault: NSWindowToolbarStyleUnified is 4, in the SDK 3
typedef struct { int kind; } EventTypeSpecs; // fault: the struct EventTypeSpecs is not in the SDK
extern "C" unsigned char LMGetKbdType(int which); // fault: LMGetKbdType() has 1 parameters, in the SDK 0
extern "C" unsigned char LMGetKeyboardType(void); // fault: LMGetKeyboardType() is not in the SDK
extern NSString* const NSPasteboardTypeFileURLs; // fault: NSPasteboardTypeFileURLs is not in the SDK
