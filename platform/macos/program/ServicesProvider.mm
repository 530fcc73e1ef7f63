#import "platform/macos/program/ServicesProvider.h"

#import "platform/macos/cocoa/Conversions.h"

@implementation ZVServicesProvider

- (instancetype)initWithFunction:(std::function<zv::Result<void>(std::vector<zv::Url>)>)add
{
    if ((self = [super init]))
        _add = std::move(add);
    return self;
}

- (void)addToZantheVellItems:(NSPasteboard*)pasteboard userData:(NSString*)data error:(NSString* __autoreleasing*)error
{
    NSDictionary<NSString*, id>* const options = @{ NSPasteboardURLReadingFileURLsOnlyKey : @YES };
    std::vector<zv::Url> files;
    for (NSURL* url in [pasteboard readObjectsForClasses:@[ [NSURL class] ] options:options])
        files.push_back(zv::fromNSURL(url));
    auto const added = _add(std::move(files));
    if (!added && error)
        *error = zv::toNSString(added.error());
}

@end
