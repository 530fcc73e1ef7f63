#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#include <cerrno>
#include <cstring>
#include <stdio.h>
#include <sys/stdio.h>

namespace zv {

namespace {

/// A temporary folder on the same volume, to write in before the file takes its name.
NSURL* makeWorkshop(NSURL* place, NSError* __autoreleasing* error)
{
    return [NSFileManager.defaultManager URLForDirectory:NSItemReplacementDirectory
                                                inDomain:NSUserDomainMask
                                       appropriateForURL:place.URLByDeletingLastPathComponent
                                                  create:YES
                                                   error:error];
}

/// The only file in the folder, by any name: some systems add an extension to an alias.
NSString* productIn(NSURL* workshop)
{
    NSString* const name = [NSFileManager.defaultManager contentsOfDirectoryAtPath:workshop.path error:nullptr].firstObject;
    return name ? [workshop.path stringByAppendingPathComponent:name] : nil;
}

/// Never replaces a file of the name, even one made a moment ago.
Result<void, AliasFailure> giveName(NSString* product, Url const& place)
{
    auto const from = fromNSString(product);
    auto const to = place.path();
    if (renamex_np(from.c_str(), to.c_str(), RENAME_EXCL) == 0)
        return {};
    if (errno != ENOTSUP)
        return Failure { AliasFailure { errno == EEXIST, std::strerror(errno) } };
    NSError* error = nil; // the next best, on a volume that cannot promise that
    if ([NSFileManager.defaultManager moveItemAtPath:product toPath:toNSString(to) error:&error])
        return {};
    return Failure { AliasFailure { error.code == NSFileWriteFileExistsError, describe(error) } };
}

class MacAliasFiles : public AliasFiles {
public:
    Result<void, AliasFailure> createAlias(Url const& target, Url const& place) override
    {
        NSError* error = nil;
        NSData* const data = [toNSURL(target) bookmarkDataWithOptions:NSURLBookmarkCreationSuitableForBookmarkFile
                                       includingResourceValuesForKeys:nil
                                                        relativeToURL:nil
                                                                error:&error];
        if (!data)
            return Failure { AliasFailure { false, describe(error) } };
        NSURL* const workshop = makeWorkshop(toNSURL(place), &error);
        if (!workshop)
            return Failure { AliasFailure { false, describe(error) } };
        auto written = write(data, workshop, place);
        [NSFileManager.defaultManager removeItemAtURL:workshop error:nullptr];
        return written;
    }

private:
    static Result<void, AliasFailure> write(NSData* data, NSURL* workshop, Url const& place)
    {
        NSError* error = nil;
        if (![NSURL writeBookmarkData:data toURL:[workshop URLByAppendingPathComponent:@"alias"] options:0 error:&error])
            return Failure { AliasFailure { false, describe(error) } };
        NSString* const product = productIn(workshop);
        return product ? giveName(product, place) : Failure { AliasFailure { false, describe(nil) } };
    }
};

} // namespace

std::unique_ptr<AliasFiles> makeAliasFiles() { return std::make_unique<MacAliasFiles>(); }

} // namespace zv
