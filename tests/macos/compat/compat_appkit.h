#pragma once
/* Names of the macOS SDK that GNUstep base 1.28 / gui 0.29 lack, limited to what the probe program uses.
   Debian only; never seen by the macOS build.  -include'd before every .mm. */
#import <Cocoa/Cocoa.h>
#undef YES
#undef NO
#undef nil
#undef Nil
#define YES __objc_yes
#define NO __objc_no
#define nil nullptr
#define Nil nullptr

/* ---- CoreGraphics-shaped geometry -------------------------------------------------------------------- */
typedef NSRect CGRect; typedef NSPoint CGPoint; typedef NSSize CGSize;
#define CGRectMake NSMakeRect
#define CGPointMake NSMakePoint
#define CGSizeMake NSMakeSize
#define CGRectInset NSInsetRect
#define CGRectGetMaxY NSMaxY
#define CGRectGetMinY NSMinY

/* ---- availability / annotation macros ---------------------------------------------------------------- */
#define API_AVAILABLE(...)
#define API_UNAVAILABLE(...)
#define API_DEPRECATED(...)
#define NS_SWIFT_NAME(x)
#define NS_REQUIRES_SUPER
#ifndef NS_NOESCAPE
#define NS_NOESCAPE
#endif

/* ---- renamed constants (10.12 and later spelling -> GNUstep spelling) ---------------------------------- */
#define ALIAS(n, o) static const auto n __attribute__((unused)) = o
ALIAS(NSEventModifierFlagShift, NSShiftKeyMask);
ALIAS(NSEventModifierFlagControl, NSControlKeyMask); ALIAS(NSEventModifierFlagOption, NSAlternateKeyMask);
ALIAS(NSEventModifierFlagCommand, NSCommandKeyMask); ALIAS(NSEventModifierFlagFunction, NSFunctionKeyMask);
ALIAS(NSEventModifierFlagNumericPad, NSNumericPadKeyMask); ALIAS(NSEventTypeKeyDown, NSKeyDown);
ALIAS(NSEventMaskMouseMoved, NSMouseMovedMask);
ALIAS(NSAlertStyleWarning, NSWarningAlertStyle); ALIAS(NSAlertStyleInformational, NSInformationalAlertStyle);
ALIAS(NSCompositingOperationSourceOver, NSCompositeSourceOver); ALIAS(NSBitmapImageFileTypePNG, NSPNGFileType);
ALIAS(NSBezelStyleRounded, NSRoundedBezelStyle);
enum { NSWindowAnimationBehaviorNone = 2 };
ALIAS(NSFontDescriptorTraitItalic, NSFontItalicTrait);
enum : NSUInteger { NSURLBookmarkCreationSuitableForBookmarkFile = 1UL << 10,
  NSVolumeEnumerationSkipHiddenVolumes = 2 };
typedef NSUInteger NSURLBookmarkCreationOptions, NSURLBookmarkResolutionOptions;
typedef NSString *NSURLResourceKey, *NSNotificationName, *NSPasteboardType, *NSAttributedStringKey, *NSImageName;
typedef CGFloat NSFontWeight;
static NSString *const NSWorkspaceDidActivateApplicationNotification __attribute__((unused)) = @"NSWorkspaceDidActivateApplicationNotification";
static NSString *const NSWorkspaceActiveSpaceDidChangeNotification __attribute__((unused)) = @"NSWorkspaceActiveSpaceDidChangeNotification";
static NSString *const NSPasteboardURLReadingFileURLsOnlyKey __attribute__((unused)) = @"NSPasteboardURLReadingFileURLsOnlyKey";
static NSString *const NSPasteboardTypeFileURL __attribute__((unused)) = @"public.file-url";
static NSString *const NSAppleScriptErrorNumber __attribute__((unused)) = @"NSAppleScriptErrorNumber";
static NSString *const NSAppleScriptErrorMessage __attribute__((unused)) = @"NSAppleScriptErrorMessage";
static NSString *const NSAccessibilityMenuBarItemRole __attribute__((unused)) = @"AXMenuBarItem";
enum { NSAppleEventSendNoReply = 1 };
typedef NSUInteger NSAppleEventSendOptions;
/* bitwise or of two NS_OPTIONS constants declared by GNUstep as plain C enums gives int in C++ */
inline NSStringDrawingOptions operator|(NSStringDrawingOptions a, NSStringDrawingOptions b) { return NSStringDrawingOptions(int(a) | int(b)); }

/* ---- missing methods: declared here, implemented (where it makes sense) in compat_impl.mm -------------- */
@interface NSApplication (CompatMac)
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)p;
- (NSApplicationActivationPolicy)activationPolicy;
@end
@interface NSAlert (CompatMac)
- (void)layout;
- (void)beginSheetModalForWindow:(NSWindow *)w completionHandler:(void (^)(NSModalResponse))h;
@end
@interface NSMenu (CompatMac)
- (void)removeAllItems;
- (BOOL)popUpMenuPositioningItem:(NSMenuItem *)i atLocation:(NSPoint)p inView:(NSView *)v;
@end
@interface NSMenuItem (CompatMac)
@property (nonatomic, copy) NSString *identifier;
@property (strong) NSView *view;
@end
typedef NS_OPTIONS(NSUInteger, NSStatusItemBehavior) { NSStatusItemBehaviorRemovalAllowed = 1 << 1 };
@interface NSStatusItem (CompatMac)
@property (readonly) NSStatusBarButton *button;
@property (copy) NSString *autosaveName;
@property NSStatusItemBehavior behavior;
@property (getter=isVisible) BOOL visible;
@end
@interface NSWindow (CompatMac)
- (void)setAnimationBehavior:(NSInteger)b;
- (void)setMovable:(BOOL)b;
- (void)setRestorable:(BOOL)b;
@end
@interface NSColor (CompatMac)
+ (NSColor *)linkColor;
+ (NSColor *)colorWithName:(NSString *)n dynamicProvider:(NSColor *(^)(NSAppearance *))p;
@end
@interface NSAttributedString (CompatMac)
- (void)enumerateAttribute:(NSString *)k inRange:(NSRange)r options:(NSUInteger)o usingBlock:(void (^)(id, NSRange, BOOL *))b;
@end
@interface NSTask (CompatMac)
- (void)setExecutableURL:(NSURL *)u;
- (BOOL)launchAndReturnError:(NSError **)e;
@end
@interface NSURL (CompatMac)
- (NSData *)bookmarkDataWithOptions:(NSURLBookmarkCreationOptions)o includingResourceValuesForKeys:(NSArray *)k relativeToURL:(NSURL *)u error:(NSError **)e;
+ (instancetype)URLByResolvingBookmarkData:(NSData *)d options:(NSURLBookmarkResolutionOptions)o relativeToURL:(NSURL *)u bookmarkDataIsStale:(BOOL *)s error:(NSError **)e;
+ (BOOL)writeBookmarkData:(NSData *)d toURL:(NSURL *)u options:(NSUInteger)o error:(NSError **)e;
+ (NSData *)bookmarkDataWithContentsOfURL:(NSURL *)u error:(NSError **)e;
+ (NSDictionary *)resourceValuesForKeys:(NSArray *)k fromBookmarkData:(NSData *)d;
@end
@interface NSUserDefaults (CompatMac)
- (BOOL)objectIsForcedForKey:(NSString *)k;
@end
@interface NSFileManager (CompatMac)
- (NSArray *)mountedVolumeURLsIncludingResourceValuesForKeys:(NSArray *)k options:(NSUInteger)o;
- (NSURL *)homeDirectoryForCurrentUser;
@end
@interface NSString (CompatMac)
- (NSComparisonResult)localizedStandardCompare:(NSString *)s;
@end
#import <UniformTypeIdentifiers/UniformTypeIdentifiers.h>
@interface NSWorkspaceOpenConfiguration : NSObject { BOOL _n; }
+ (instancetype)configuration;
@property (nonatomic) BOOL createsNewApplicationInstance;
@end
@interface NSWorkspace (CompatMac)
- (void)openApplicationAtURL:(NSURL *)u configuration:(NSWorkspaceOpenConfiguration *)c completionHandler:(void (^)(NSRunningApplication *, NSError *))h;
- (void)activateFileViewerSelectingURLs:(NSArray *)u;
- (void)openURLs:(NSArray *)u withApplicationAtURL:(NSURL *)a configuration:(NSWorkspaceOpenConfiguration *)c completionHandler:(void (^)(NSRunningApplication *, NSError *))h;
- (void)recycleURLs:(NSArray *)u completionHandler:(void (^)(NSDictionary *, NSError *))h;
- (NSURL *)URLForApplicationToOpenURL:(NSURL *)u;
- (NSArray *)URLsForApplicationsToOpenURL:(NSURL *)u;
- (NSURL *)URLForApplicationWithBundleIdentifier:(NSString *)i;
- (NSImage *)iconForContentType:(UTType *)t;
@end
@interface NSEvent (CompatMac)
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)m handler:(void (^)(NSEvent *))h;
+ (void)removeMonitor:(id)m;
@end
@interface NSThread (CompatMac)
+ (void)detachNewThreadWithBlock:(void (^)(void))b;
@end
@interface NSPredicate (CompatMac)
+ (NSPredicate *)predicateFromMetadataQueryString:(NSString *)s;
@end
@interface NSAppleScript (CompatMac)
- (instancetype)initWithSource:(NSString *)s;
- (NSAppleEventDescriptor *)executeAndReturnError:(NSDictionary **)e;
@end
@interface NSAppleEventDescriptor (CompatMac)
+ (instancetype)descriptorWithBundleIdentifier:(NSString *)i;
- (instancetype)initWithEventClass:(unsigned)c eventID:(unsigned)i targetDescriptor:(NSAppleEventDescriptor *)t returnID:(short)r transactionID:(int)x;
- (const struct AEDesc *)aeDesc;
- (NSAppleEventDescriptor *)sendEventWithOptions:(NSAppleEventSendOptions)o timeout:(NSTimeInterval)t error:(NSError **)e;
@end
@interface NSImageSymbolConfiguration : NSObject
+ (instancetype)configurationWithPointSize:(CGFloat)s weight:(NSFontWeight)w;
+ (instancetype)configurationPreferringMulticolor;
@end
@interface NSImage (CompatMac)
+ (instancetype)imageWithSystemSymbolName:(NSString *)n accessibilityDescription:(NSString *)d;
- (NSImage *)imageWithSymbolConfiguration:(NSImageSymbolConfiguration *)c;
+ (instancetype)imageWithSize:(NSSize)s flipped:(BOOL)f drawingHandler:(BOOL (^)(NSRect))h;
- (void)setTemplate:(BOOL)t;
- (BOOL)isTemplate;
@end
@interface NSPasteboard (CompatMac)
- (NSInteger)clearContents;
- (BOOL)writeObjects:(NSArray *)o;
- (NSArray *)readObjectsForClasses:(NSArray *)c options:(NSDictionary *)o;
@end
@interface NSButton (CompatMac)
+ (instancetype)buttonWithTitle:(NSString *)t target:(id)o action:(SEL)a;
+ (instancetype)checkboxWithTitle:(NSString *)t target:(id)o action:(SEL)a;
@end
@interface NSTextField (CompatMac)
+ (instancetype)labelWithString:(NSString *)s;
@end

/* ---- grown with the code ------------------------------------------------------------------------------- */
@interface NSString (CompatMac2)
- (NSString *)stringByFoldingWithOptions:(NSStringCompareOptions)o locale:(NSLocale *)l;
@end
@interface NSData (CompatMac2)
+ (instancetype)dataWithContentsOfURL:(NSURL *)u options:(NSUInteger)o error:(NSError **)e;
@end
@interface NSKeyedUnarchiver (CompatMac2)
+ (id)unarchivedObjectOfClasses:(NSSet *)c fromData:(NSData *)d error:(NSError **)e;
@end
@interface NSFileManager (CompatMac2)
- (BOOL)replaceItemAtURL:(NSURL *)a withItemAtURL:(NSURL *)b backupItemName:(NSString *)n options:(NSUInteger)o resultingItemURL:(NSURL **)r error:(NSError **)e;
@end
@interface NSAttributedString (CompatMac2)
- (NSRect)boundingRectWithSize:(NSSize)s options:(NSStringDrawingOptions)o context:(id)c;
@end
@interface NSTextView (CompatMac2)
- (void)setUsesAdaptiveColorMappingForDarkAppearance:(BOOL)b;
@end
@interface NSColorSpace (CompatMac2)
+ (NSColorSpace *)sRGBColorSpace;
@end
@interface NSMetadataQuery (CompatMac2)
- (void)setOperationQueue:(NSOperationQueue *)q;
@end
@interface NSOperationQueue (CompatMac2)
- (void)setQualityOfService:(NSQualityOfService)q;
@end
@interface NSFileHandle (CompatMac2)
- (NSData *)readDataToEndOfFileAndReturnError:(NSError **)e;
@end
@interface NSSavePanel (CompatMac2)
- (void)setAllowedContentTypes:(NSArray *)t;
@end
#include "compat_settings.h"
