#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"
#import "platform/macos/files/Quarantine.h"

#import <DiskArbitration/DiskArbitration.h>

namespace zv {

namespace {

/// The model that the disk of a mounted image reports.
constexpr char const* diskImageModel = "Disk Image";

bool isOnDiskImage(NSURL* bundle)
{
    NSURL* volume = nil;
    if (![bundle getResourceValue:&volume forKey:NSURLVolumeURLKey error:nullptr] || !volume)
        return false;
    DASessionRef const session = DASessionCreate(kCFAllocatorDefault);
    if (!session)
        return false;
    DADiskRef const disk = DADiskCreateFromVolumePath(kCFAllocatorDefault, session, (__bridge CFURLRef)volume);
    NSDictionary* const description = disk ? CFBridgingRelease(DADiskCopyDescription(disk)) : nil;
    id const model = [description objectForKey:(__bridge NSString*)kDADiskDescriptionDeviceModelKey];
    if (disk)
        CFRelease(disk);
    CFRelease(session);
    return [model isKindOfClass:[NSString class]] && fromNSString(model) == diskImageModel;
}

/// Touches only a marked file: the system watches who changes applications.
void releaseFromQuarantine(NSString* file)
{
    if (isQuarantined(file))
        removexattr(fromNSString(file).c_str(), quarantineAttribute, XATTR_NOFOLLOW);
}

/// Unmarks the copy, which the system would otherwise take for a download and start from a
/// read-only copy once more. The user has let this program run already.
void releaseAllFromQuarantine(NSString* root)
{
    releaseFromQuarantine(root);
    for (NSString* below in [NSFileManager.defaultManager enumeratorAtPath:root])
        releaseFromQuarantine([root stringByAppendingPathComponent:below]);
}

class MacInstallation : public Installation {
public:
    explicit MacInstallation(std::function<void()> giveWay)
        : m_giveWay(std::move(giveWay))
    {
    }

    RelocationSource source(Url const& bundle) const override
    {
        if (bundle.path().find("/AppTranslocation/") != std::string::npos)
            return RelocationSource::translocated;
        return isOnDiskImage(toNSURL(bundle)) ? RelocationSource::diskImage : RelocationSource::none;
    }

    std::optional<Url> applicationsFolder() override
    {
        NSURL* const local = folder(NSLocalDomainMask, NO);
        if (local && [files() fileExistsAtPath:local.path] && [files() isWritableFileAtPath:local.path])
            return fromNSURL(local);
        NSURL* const own = folder(NSUserDomainMask, YES);
        return own ? std::optional(fromNSURL(own)) : std::nullopt;
    }

    Result<Url> makeReplacementFolder(Url const& destination) override
    {
        NSError* error = nil;
        NSURL* const made = [files() URLForDirectory:NSItemReplacementDirectory
                                            inDomain:NSUserDomainMask
                                   appropriateForURL:toNSURL(destination)
                                              create:YES
                                               error:&error];
        if (!made)
            return Failure { describe(error) };
        return fromNSURL(made);
    }

    Result<void> copy(Url const& from, Url const& to) override
    {
        NSError* error = nil;
        BOOL const copied = [files() copyItemAtURL:toNSURL(from) toURL:toNSURL(to) error:&error];
        if (copied)
            releaseAllFromQuarantine(toNSURL(to).path);
        return resultOf(copied, error);
    }

    Result<void> put(Url const& from, Url const& to) override
    {
        NSError* error = nil;
        NSURL* const target = toNSURL(to);
        BOOL const isThere = [files() fileExistsAtPath:target.path];
        BOOL const done = isThere
            ? [files() replaceItemAtURL:target withItemAtURL:toNSURL(from) backupItemName:nil options:0 resultingItemURL:nullptr error:&error]
            : [files() moveItemAtURL:toNSURL(from) toURL:target error:&error];
        if (done)
            releaseFromQuarantine(target.path); // the replaced file may have passed a mark on
        return resultOf(done, error);
    }

    void removeFolder(Url const& folder) override { [files() removeItemAtURL:toNSURL(folder) error:nullptr]; }

    /// Nothing to do: the system sees an application in its folder by itself.
    Result<void> announce(Url const&) override { return {}; }

    void giveWay() override { m_giveWay(); }

private:
    static NSFileManager* files() { return NSFileManager.defaultManager; }
    static NSURL* folder(NSSearchPathDomainMask domain, BOOL create)
    {
        return [files() URLForDirectory:NSApplicationDirectory inDomain:domain appropriateForURL:nil create:create error:nullptr];
    }

    std::function<void()> m_giveWay;
};

} // namespace

std::unique_ptr<Installation> makeInstallation(std::function<void()> giveWay) { return std::make_unique<MacInstallation>(std::move(giveWay)); }

} // namespace zv
