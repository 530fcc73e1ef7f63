#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"

#import <CoreFoundation/CoreFoundation.h>

namespace zv {

/// Reads from the disk each time: a bundle object would be kept as long as the program runs.
std::string bundleIdentifierOf(Url const& application)
{
    @autoreleasepool {
        NSDictionary* const information = CFBridgingRelease(CFBundleCopyInfoDictionaryInDirectory((__bridge CFURLRef)toNSURL(application)));
        id const identifier = [information objectForKey:@"CFBundleIdentifier"];
        return [identifier isKindOfClass:[NSString class]] ? fromNSString(identifier) : std::string();
    }
}

} // namespace zv
