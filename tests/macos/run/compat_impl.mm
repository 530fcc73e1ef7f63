/* Run-time half of compat_appkit.h: just enough behaviour for a smoke test under Xvfb. Debian only. */
#include <map>
#include <string>
#include <vector>
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>
#import <objc/runtime.h>

static void swap(Class c, SEL a, SEL b) { method_exchangeImplementations(class_getInstanceMethod(c, a), class_getInstanceMethod(c, b)); }
static std::map<std::pair<void *, int>, id> &side() { static auto *m = new std::map<std::pair<void *, int>, id>; return *m; }
static id sideGet(id o, int k) { auto i = side().find({o, k}); return i == side().end() ? nil : i->second; }
static void sideSet(id o, int k, id v) { side()[{o, k}] = [v retain]; } /* leaks: test only */

@implementation NSApplication (CompatMac)
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)p { sideSet(self, 1, [NSNumber numberWithInteger:p]); return YES; }
- (NSApplicationActivationPolicy)activationPolicy { return [sideGet(self, 1) integerValue]; }
@end
@implementation NSAlert (CompatMac)
- (void)layout { }
@end
@implementation NSMenu (CompatMac)
- (void)removeAllItems { while ([self numberOfItems] > 0) [self removeItemAtIndex:0]; }
@end
@implementation NSMenuItem (CompatMac)
- (NSString *)identifier { return sideGet(self, 1); }
- (void)setIdentifier:(NSString *)s { sideSet(self, 1, s); }
- (NSView *)view { return sideGet(self, 2); }
- (void)setView:(NSView *)v { sideSet(self, 2, v); }
@end
@implementation NSUserDefaults (CompatMac)
- (BOOL)objectIsForcedForKey:(NSString *)k { return NO; }
@end
@implementation NSColor (CompatMac)
+ (NSColor *)linkColor { return [NSColor blueColor]; }
@end
@implementation NSAttributedString (CompatMac)
- (void)enumerateAttribute:(NSString *)k inRange:(NSRange)r options:(NSUInteger)o usingBlock:(void (^)(id, NSRange, BOOL *))b {
  BOOL stop = NO;
  for (NSUInteger at = r.location; at < NSMaxRange(r) && !stop;) {
    NSRange e; id v = [self attribute:k atIndex:at longestEffectiveRange:&e inRange:r];
    b(v, e, &stop); at = NSMaxRange(e);
  }
}
@end
@implementation NSTask (CompatMac)
- (void)setExecutableURL:(NSURL *)u { [self setLaunchPath:[u path]]; }
- (BOOL)launchAndReturnError:(NSError **)e {
  @try { [self launch]; return YES; }
  @catch (NSException *x) { if (e) *e = [NSError errorWithDomain:NSCocoaErrorDomain code:4 userInfo:nil]; return NO; }
}
@end
@implementation NSFileHandle (CompatMac2)
- (NSData *)readDataToEndOfFileAndReturnError:(NSError **)e { return [self readDataToEndOfFile]; }
@end
@implementation NSURL (CompatMac)
- (BOOL)compat_getResourceValue:(id *)v forKey:(NSString *)k error:(NSError **)e {
  struct stat l, s; const char *p = [[self path] fileSystemRepresentation];
  *v = nil;
  if (!p || lstat(p, &l)) { if (e) *e = [NSError errorWithDomain:NSCocoaErrorDomain code:260 userInfo:nil]; return NO; }
  if (stat(p, &s)) s = l;
  if ([k isEqual:NSURLIsDirectoryKey]) *v = [NSNumber numberWithBool:S_ISDIR(l.st_mode)];
  else if ([k isEqual:NSURLIsSymbolicLinkKey]) *v = [NSNumber numberWithBool:S_ISLNK(l.st_mode)];
  else if ([k isEqual:NSURLIsHiddenKey]) *v = [NSNumber numberWithBool:[[self lastPathComponent] hasPrefix:@"."]];
  else if ([k isEqual:NSURLIsPackageKey]) *v = [NSNumber numberWithBool:[[self pathExtension] isEqual:@"app"]];
  else if ([k isEqual:NSURLIsAliasFileKey] || [k isEqual:NSURLVolumeIsReadOnlyKey]) *v = [NSNumber numberWithBool:NO];
  else if ([k isEqual:NSURLLocalizedNameKey]) *v = [self lastPathComponent];
  return YES;
}
- (NSData *)bookmarkDataWithOptions:(NSUInteger)o includingResourceValuesForKeys:(NSArray *)k relativeToURL:(NSURL *)u error:(NSError **)e {
  if (![[NSFileManager defaultManager] fileExistsAtPath:[self path]]) { if (e) *e = [NSError errorWithDomain:NSCocoaErrorDomain code:260 userInfo:nil]; return nil; }
  return [[@"book" stringByAppendingString:[self path]] dataUsingEncoding:NSUTF8StringEncoding];
}
+ (instancetype)URLByResolvingBookmarkData:(NSData *)d options:(NSUInteger)o relativeToURL:(NSURL *)u bookmarkDataIsStale:(BOOL *)s error:(NSError **)e {
  NSString *t = [[[NSString alloc] initWithData:d encoding:NSUTF8StringEncoding] autorelease];
  if (s) *s = NO;
  return [t hasPrefix:@"book"] ? [NSURL fileURLWithPath:[t substringFromIndex:4]] : nil;
}
+ (BOOL)writeBookmarkData:(NSData *)d toURL:(NSURL *)u options:(NSUInteger)o error:(NSError **)e { return [d writeToURL:u atomically:YES]; }
@end
@interface NSFileManager (CompatMain)
- (NSArray *)compat_contentsOfDirectoryAtURL:(NSURL *)u includingPropertiesForKeys:(NSArray *)k options:(NSUInteger)o error:(NSError **)e;
@end
@implementation NSFileManager (CompatMac)
- (NSArray *)mountedVolumeURLsIncludingResourceValuesForKeys:(NSArray *)k options:(NSUInteger)o { return [NSArray arrayWithObject:[NSURL fileURLWithPath:@"/"]]; }
/* base 1.28 answers URLs relative to the working directory instead of the given one */
- (NSArray *)compat_contentsOfDirectoryAtURL:(NSURL *)u includingPropertiesForKeys:(NSArray *)k options:(NSUInteger)o error:(NSError **)e {
  NSArray *names = [self contentsOfDirectoryAtPath:[u path] error:e];
  if (!names) return nil;
  NSMutableArray *r = [NSMutableArray array];
  for (NSString *n in names)
    if (!(o & NSDirectoryEnumerationSkipsHiddenFiles) || ![n hasPrefix:@"."]) [r addObject:[NSURL fileURLWithPath:[[u path] stringByAppendingPathComponent:n]]];
  return r;
}
- (NSURL *)homeDirectoryForCurrentUser { return [NSURL fileURLWithPath:[NSString stringWithUTF8String:getenv("HOME")]]; } /* base 1.28 asks the user database */
@end
@implementation NSString (CompatMac)
/* base 1.28 ignores NSCaseInsensitiveSearch when NSNumericSearch is given */
- (NSComparisonResult)localizedStandardCompare:(NSString *)s { return [[self lowercaseString] compare:[s lowercaseString] options:NSNumericSearch]; }
@end
@implementation NSWorkspaceOpenConfiguration
@synthesize createsNewApplicationInstance = _n;
+ (instancetype)configuration { return [[[self alloc] init] autorelease]; }
@end
@implementation NSWorkspace (CompatMac)
- (void)openApplicationAtURL:(NSURL *)u configuration:(NSWorkspaceOpenConfiguration *)c completionHandler:(void (^)(NSRunningApplication *, NSError *))h { printf("[compat] launch %s\n", [[u absoluteString] UTF8String]); if (h) h(nil, nil); }
- (void)activateFileViewerSelectingURLs:(NSArray *)u { printf("[compat] reveal %d\n", (int)[u count]); }
- (NSURL *)URLForApplicationWithBundleIdentifier:(NSString *)i { return nil; }
@end
@interface CompatThread : NSObject { void (^b_)(void); }
- (void)go:(id)x;
@end
@implementation CompatThread
- (instancetype)initWithBlock:(void (^)(void))b { if ((self = [super init])) b_ = [b copy]; return self; }
- (void)go:(id)x { @autoreleasepool { b_(); } }
@end
@implementation NSThread (CompatMac)
+ (void)detachNewThreadWithBlock:(void (^)(void))b { [NSThread detachNewThreadSelector:@selector(go:) toTarget:[[CompatThread alloc] initWithBlock:b] withObject:nil]; }
@end
@implementation NSPredicate (CompatMac)
+ (NSPredicate *)predicateFromMetadataQueryString:(NSString *)s { return [NSPredicate predicateWithValue:YES]; }
@end
@implementation NSAppleScript (CompatMac)
- (instancetype)initWithSource:(NSString *)s { return [self init]; }
- (NSAppleEventDescriptor *)executeAndReturnError:(NSDictionary **)e { if (e) *e = @{NSAppleScriptErrorNumber : @(-1743)}; return nil; }
@end
@implementation NSAppleEventDescriptor (CompatMac)
+ (instancetype)descriptorWithBundleIdentifier:(NSString *)i { return [[[self alloc] init] autorelease]; }
- (instancetype)initWithEventClass:(unsigned)c eventID:(unsigned)i targetDescriptor:(NSAppleEventDescriptor *)t returnID:(short)r transactionID:(int)x { return [self init]; }
- (NSAppleEventDescriptor *)sendEventWithOptions:(NSAppleEventSendOptions)o timeout:(NSTimeInterval)t error:(NSError **)e { if (e) *e = [NSError errorWithDomain:NSOSStatusErrorDomain code:-1743 userInfo:nil]; return nil; }
@end
@implementation NSPasteboard (CompatMac)
- (NSInteger)clearContents { return [self declareTypes:[NSArray array] owner:nil]; }
- (NSArray *)pasteboardItems { return sideGet(self, 1); }
- (BOOL)writeObjects:(NSArray *)o {
  if ([[o objectAtIndex:0] isKindOfClass:[NSPasteboardItem class]]) { sideSet(self, 1, o); return YES; }
  NSMutableArray *paths = [NSMutableArray array];
  for (id x in o) if ([x isKindOfClass:[NSURL class]]) [paths addObject:[x path]];
  if ([paths count]) { [self declareTypes:[NSArray arrayWithObject:NSFilenamesPboardType] owner:nil]; return [self setPropertyList:paths forType:NSFilenamesPboardType]; }
  [self declareTypes:[NSArray arrayWithObject:NSStringPboardType] owner:nil]; return [self setString:[o objectAtIndex:0] forType:NSStringPboardType];
}
- (NSArray *)readObjectsForClasses:(NSArray *)c options:(NSDictionary *)o {
  NSMutableArray *r = [NSMutableArray array];
  if ([c containsObject:[NSURL class]]) for (NSString *p in (NSArray *)[self propertyListForType:NSFilenamesPboardType]) [r addObject:[NSURL fileURLWithPath:p]];
  if ([c containsObject:[NSString class]] && [self stringForType:NSStringPboardType]) [r addObject:[self stringForType:NSStringPboardType]];
  return r;
}
@end
/* GNUstep-base 1.28 treats NSRunLoopCommonModes as a mode of that name, so such a timer never fires. */
@interface NSRunLoop (CompatMac)
- (void)compat_addTimer:(NSTimer *)t forMode:(NSString *)m;
@end
@implementation NSRunLoop (CompatMac)
- (void)compat_addTimer:(NSTimer *)t forMode:(NSString *)m {
  if (![m isEqual:NSRunLoopCommonModes]) { [self compat_addTimer:t forMode:m]; return; }
  [self compat_addTimer:t forMode:NSDefaultRunLoopMode];
  [self compat_addTimer:t forMode:NSEventTrackingRunLoopMode];
  [self compat_addTimer:t forMode:NSModalPanelRunLoopMode];
}
@end
/* The same for work handed to the main thread. */
@interface NSObject (CompatMain)
- (void)compat_performSelectorOnMainThread:(SEL)a withObject:(id)o waitUntilDone:(BOOL)w modes:(NSArray *)m;
@end
@implementation NSObject (CompatMain)
- (void)compat_performSelectorOnMainThread:(SEL)a withObject:(id)o waitUntilDone:(BOOL)w modes:(NSArray *)m {
  if ([m containsObject:NSRunLoopCommonModes]) m = [NSArray arrayWithObjects:NSDefaultRunLoopMode, NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode, nil];
  [self compat_performSelectorOnMainThread:a withObject:o waitUntilDone:w modes:m];
}
@end
/* A bare program has no bundle; its defaults go by its name. */
@interface NSBundle (CompatMain)
- (NSString *)compat_bundleIdentifier;
@end
@implementation NSBundle (CompatMain)
- (NSString *)compat_bundleIdentifier { return self == [NSBundle mainBundle] ? [[NSProcessInfo processInfo] processName] : [self compat_bundleIdentifier]; }
@end
/* The Mac's own adds an address to what it read. */
@interface NSBundle (CompatInformation)
- (NSDictionary *)compat_infoDictionary;
@end
@implementation NSBundle (CompatInformation)
- (NSDictionary *)compat_infoDictionary {
  NSMutableDictionary *d = [NSMutableDictionary dictionaryWithDictionary:[self compat_infoDictionary]];
  [d setObject:[NSURL fileURLWithPath:@"/Info.plist"] forKey:@"CFBundleInfoPlistURL"];
  if (![d objectForKey:@"CFBundleShortVersionString"]) [d setObject:@"0.1" forKey:@"CFBundleShortVersionString"];
  return d;
}
@end
/* What the settings and the notes call beside. */
@implementation NSAttributedString (CompatMac2)
- (NSRect)boundingRectWithSize:(NSSize)s options:(NSStringDrawingOptions)o context:(id)c { return [self boundingRectWithSize:s options:o]; }
@end
@implementation NSTextView (CompatMac2)
- (void)setUsesAdaptiveColorMappingForDarkAppearance:(BOOL)b { }
@end
@implementation NSColorSpace (CompatMac2)
+ (NSColorSpace *)sRGBColorSpace { return [NSColorSpace deviceRGBColorSpace]; }
@end
@implementation NSString (CompatMac2)
- (NSString *)stringByFoldingWithOptions:(NSStringCompareOptions)o locale:(NSLocale *)l { return [self lowercaseString]; }
@end
/* gui 0.29: -[NSMenu addItem:] calls -update, which calls menuNeedsUpdate:, which adds items, ... without end. */
@interface NSMenu (CompatGuard)
- (void)compat_update;
@end
@implementation NSMenu (CompatGuard)
- (void)compat_update {
  static auto *busy = new std::vector<NSMenu *>;
  for (NSMenu *m : *busy) if (m == self) return;
  busy->push_back(self);
  [self compat_update];
  busy->pop_back();
}
@end
/* base 1.28 has a main queue that runs off the main thread. */
@interface NSNotificationCenter (CompatQueue)
- (id)compat_addObserverForName:(NSString*)name object:(id)object queue:(NSOperationQueue*)queue usingBlock:(void (^)(NSNotification*))block;
@end
@implementation NSNotificationCenter (CompatQueue)
- (id)compat_addObserverForName:(NSString*)name object:(id)object queue:(NSOperationQueue*)queue usingBlock:(void (^)(NSNotification*))block
{
    return [self compat_addObserverForName:name object:object queue:nil usingBlock:block];
}
@end
@interface CompatInstall : NSObject
@end
@implementation CompatInstall
+ (void)load { @autoreleasepool { /* a C constructor would run before the selectors of this file are registered */
  swap([NSRunLoop class], @selector(addTimer:forMode:), @selector(compat_addTimer:forMode:));
  swap([NSFileManager class], @selector(contentsOfDirectoryAtURL:includingPropertiesForKeys:options:error:), @selector(compat_contentsOfDirectoryAtURL:includingPropertiesForKeys:options:error:));
  swap([NSObject class], @selector(performSelectorOnMainThread:withObject:waitUntilDone:modes:), @selector(compat_performSelectorOnMainThread:withObject:waitUntilDone:modes:));
  swap([NSBundle class], @selector(bundleIdentifier), @selector(compat_bundleIdentifier));
  swap([NSBundle class], @selector(infoDictionary), @selector(compat_infoDictionary));
  swap([NSMenu class], @selector(update), @selector(compat_update));
  swap([NSNotificationCenter class], @selector(addObserverForName:object:queue:usingBlock:), @selector(compat_addObserverForName:object:queue:usingBlock:));
  swap([NSURL class], @selector(getResourceValue:forKey:error:), @selector(compat_getResourceValue:forKey:error:));
} }
@end

@implementation NSOperationQueue (CompatMac2)
- (void)setQualityOfService:(NSQualityOfService)q
{
}
@end
@implementation NSEvent (CompatSettings)
- (NSString*)charactersByApplyingModifiers:(NSEventModifierFlags)m
{
    return [self charactersIgnoringModifiers];
}
@end
/* Message ports within one process: who asks a port calls it. A name that is taken is another process's. */
#include <CoreFoundation/CoreFoundation.h>
#include <set>
struct __CFMessagePort {
    CFMessagePortCallBack call;
    void* info;
    std::string name;
};
static auto& localPorts()
{
    static auto* ports = new std::map<std::string, CFMessagePortRef>;
    return *ports;
}
static auto& allPorts()
{
    static auto* ports = new std::set<CFTypeRef>;
    return *ports;
}
const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFRunLoopMode kCFRunLoopDefaultMode = (CFStringRef) @"kCFRunLoopDefaultMode";
const CFRunLoopMode kCFRunLoopCommonModes = (CFStringRef) @"kCFRunLoopCommonModes";
CFRunLoopRef CFRunLoopGetMain(void) { return nullptr; }
void CFRunLoopAddSource(CFRunLoopRef, CFRunLoopSourceRef, CFRunLoopMode) { }
CFRunLoopSourceRef CFMessagePortCreateRunLoopSource(CFAllocatorRef, CFMessagePortRef, CFIndex) { return nullptr; }
CFMessagePortRef CFMessagePortCreateLocal(CFAllocatorRef, CFStringRef name, CFMessagePortCallBack call, CFMessagePortContext* context, Boolean*)
{
    std::string const text = [(NSString*)name UTF8String];
    if (localPorts().count(text))
        return nullptr;
    auto* const port = new __CFMessagePort { call, context->info, text };
    allPorts().insert(port);
    return localPorts()[text] = port;
}
CFMessagePortRef CFMessagePortCreateRemote(CFAllocatorRef, CFStringRef name)
{
    std::string const text = [(NSString*)name UTF8String];
    if (!localPorts().count(text))
        return nullptr;
    auto* const port = new __CFMessagePort { nullptr, nullptr, text };
    allPorts().insert(port);
    return port;
}
SInt32 CFMessagePortSendRequest(CFMessagePortRef remote, SInt32 message, CFDataRef data, CFTimeInterval, CFTimeInterval, CFStringRef, CFDataRef* answer)
{
    auto const found = localPorts().find(remote->name);
    if (found == localPorts().end())
        return -3; // the port is invalid
    *answer = found->second->call(found->second, message, data, found->second->info);
    return kCFMessagePortSuccess;
}
void CFMessagePortInvalidate(CFMessagePortRef port) { localPorts().erase(port->name); }
void CFRelease(CFTypeRef object)
{
    if (allPorts().erase(object))
        delete static_cast<CFMessagePortRef>(const_cast<void*>(object));
}
CFDictionaryRef CFBundleCopyInfoDictionaryInDirectory(CFURLRef bundle)
{
    NSString* const path = [[(NSURL*)bundle path] stringByAppendingPathComponent:@"Contents/Info.plist"];
    return (CFDictionaryRef)[[NSDictionary dictionaryWithContentsOfFile:path] retain];
}
/* Nothing is mounted. */
#include <sys/mount.h>
int getfsstat(struct statfs*, int, int) { return 0; }
