/* What the command line calls beside, where there is no such thing: no networks, disks, models or login items. */
#import <DiskArbitration/DiskArbitration.h>
#import <ServiceManagement/ServiceManagement.h>
#import <SystemConfiguration/SystemConfiguration.h>
#import <objc/runtime.h>

#include <cstdio>
#include <sys/stdio.h>
#include <sys/sysctl.h>

const CFStringRef kDADiskDescriptionDeviceModelKey = nullptr;
DASessionRef DASessionCreate(CFAllocatorRef) { return nullptr; }
DADiskRef DADiskCreateFromVolumePath(CFAllocatorRef, DASessionRef, CFURLRef) { return nullptr; }
CFDictionaryRef DADiskCopyDescription(DADiskRef) { return nullptr; }
CFArrayRef SCNetworkInterfaceCopyAll(void) { return nullptr; }
CFStringRef SCNetworkInterfaceGetBSDName(SCNetworkInterfaceRef) { return nullptr; }
CFStringRef SCNetworkInterfaceGetLocalizedDisplayName(SCNetworkInterfaceRef) { return nullptr; }
SCDynamicStoreRef SCDynamicStoreCreate(CFAllocatorRef, CFStringRef, void (*)(SCDynamicStoreRef, CFArrayRef, void*), void*) { return nullptr; }
CFTypeRef SCDynamicStoreCopyValue(SCDynamicStoreRef, CFStringRef) { return nullptr; }
int sysctlbyname(char const*, void*, std::size_t*, void*, std::size_t) { return -1; }
int renamex_np(char const* from, char const* to, unsigned) { return std::rename(from, to); }

@implementation SMAppService
+ (SMAppService*)mainAppService
{
    return [[self alloc] init];
}
- (SMAppServiceStatus)status
{
    return SMAppServiceStatusRequiresApproval;
}
@end

/* What base 1.28 declares and does not have, or does not do. */
@interface NSMetadataQuery (CompatCommand)
- (BOOL)compat_startQuery;
- (void)compat_stopQuery;
- (NSUInteger)compat_resultCount;
@end
@implementation NSMetadataQuery (CompatCommand)
- (void)finish
{
    [[NSNotificationCenter defaultCenter] postNotificationName:NSMetadataQueryDidFinishGatheringNotification object:self];
}
- (BOOL)compat_startQuery
{
    [self performSelector:@selector(finish) withObject:nil afterDelay:0];
    return YES;
}
- (void)compat_stopQuery
{
}
- (NSUInteger)compat_resultCount
{
    return 0;
}
@end
@implementation NSMetadataQuery (CompatMac2)
- (void)setOperationQueue:(NSOperationQueue*)queue
{
}
@end
@implementation NSData (CompatMac2)
+ (instancetype)dataWithContentsOfURL:(NSURL*)url options:(NSUInteger)options error:(NSError**)error
{
    NSData* const data = [NSData dataWithContentsOfFile:[url path]];
    if (!data && error)
        *error = [NSError errorWithDomain:NSCocoaErrorDomain code:260 userInfo:[NSDictionary dictionaryWithObject:@"There is no such file." forKey:NSLocalizedDescriptionKey]];
    return data;
}
@end
@interface NSFileManager (CompatCommand)
- (NSURL*)compat_URLForDirectory:(NSSearchPathDirectory)directory inDomain:(NSSearchPathDomainMask)domain appropriateForURL:(NSURL*)url create:(BOOL)create error:(NSError**)error;
@end
@implementation NSFileManager (CompatCommand)
- (NSURL*)compat_URLForDirectory:(NSSearchPathDirectory)directory inDomain:(NSSearchPathDomainMask)domain appropriateForURL:(NSURL*)url create:(BOOL)create error:(NSError**)error
{
    if (directory != NSItemReplacementDirectory)
        return [self compat_URLForDirectory:directory inDomain:domain appropriateForURL:url create:create error:error];
    NSString* const path = [[[url path] stringByDeletingLastPathComponent] stringByAppendingPathComponent:[[NSProcessInfo processInfo] globallyUniqueString]];
    return [self createDirectoryAtPath:path withIntermediateDirectories:NO attributes:nil error:error] ? [NSURL fileURLWithPath:path] : nil;
}
@end
static void swapIn(Class owner, SEL given, SEL own) { method_exchangeImplementations(class_getInstanceMethod(owner, given), class_getInstanceMethod(owner, own)); }
@interface CommandInstall : NSObject
@end
@implementation CommandInstall
+ (void)load
{
    @autoreleasepool {
        swapIn([NSMetadataQuery class], @selector(startQuery), @selector(compat_startQuery));
        swapIn([NSMetadataQuery class], @selector(stopQuery), @selector(compat_stopQuery));
        swapIn([NSMetadataQuery class], @selector(resultCount), @selector(compat_resultCount));
        swapIn([NSFileManager class], @selector(URLForDirectory:inDomain:appropriateForURL:create:error:),
            @selector(compat_URLForDirectory:inDomain:appropriateForURL:create:error:));
    }
}
@end
