#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"
#import "platform/macos/files/LinkTargets.h"

#include <sys/stat.h>

namespace zv {

namespace {

bool flag(NSURL* url, NSString* key)
{
    NSNumber* value = nil;
    return [url getResourceValue:&value forKey:key error:nullptr] && value.boolValue;
}

std::optional<std::string> text(NSURL* url, NSString* key)
{
    NSString* value = nil;
    bool const isThere = [url getResourceValue:&value forKey:key error:nullptr] && value;
    return isThere ? std::optional(fromNSString(value)) : std::nullopt;
}

/// Has a file manager of its own: the shared one is not for every thread's delegate.
class MacFileSystem : public FileSystem {
public:
    MacFileSystem()
        : m_files([[NSFileManager alloc] init])
    {
    }

    bool exists(Url const& url) const override { return [m_files fileExistsAtPath:pathOf(url)]; }
    bool isTaken(Url const& url) const override { return [m_files attributesOfItemAtPath:pathOf(url) error:nullptr] != nil; }

    std::optional<FileTraits> traits(Url const& url) const override
    {
        if (!isTaken(url))
            return std::nullopt;
        NSURL* const named = toNSURL(url);
        NSURL* const found = targetOfLinks(named);
        NSURL* const target = found ? found : named;
        return FileTraits { flag(target, NSURLIsDirectoryKey), flag(target, NSURLIsPackageKey), found ? FileFault::none : FileFault::leadsNowhere };
    }

    Url resolvingSymlinks(Url const& url) const override { return fromNSURL(toNSURL(url).URLByResolvingSymlinksInPath); }

    std::string localizedName(Url const& url) const override
    {
        auto const name = text(toNSURL(url), NSURLLocalizedNameKey);
        return name ? *name : fromNSString(toNSString(url.lastPathComponent()));
    }

    std::optional<std::string> volumeName(Url const& url) const override
    {
        NSURL* const given = toNSURL(url);
        return flag(given, NSURLIsVolumeKey) ? text(given, NSURLVolumeLocalizedNameKey) : std::nullopt;
    }

    bool isOnReadOnlyVolume(Url const& url) const override { return flag(toNSURL(url), NSURLVolumeIsReadOnlyKey); }

    Result<void> createDirectory(Url const& url) override
    {
        NSError* error = nil;
        BOOL const made = [m_files createDirectoryAtURL:toNSURL(url) withIntermediateDirectories:YES attributes:nil error:&error];
        return resultOf(made, error);
    }

    bool isWritableDirectory(Url const& url) const override { return flag(toNSURL(url), NSURLIsDirectoryKey) && [m_files isWritableFileAtPath:pathOf(url)]; }

    Result<std::vector<std::byte>> read(Url const& url) const override
    {
        NSError* error = nil;
        NSData* const data = [NSData dataWithContentsOfURL:toNSURL(url) options:0 error:&error];
        if (!data)
            return Failure { describe(error) };
        return fromNSData(data);
    }

    Result<void> write(Url const& url, std::vector<std::byte> const& bytes) override
    {
        NSError* error = nil;
        BOOL const written = [toNSData(bytes) writeToURL:toNSURL(url) options:NSDataWritingAtomic error:&error];
        return resultOf(written, error);
    }

    Result<void> writePrivately(Url const& url, std::vector<std::byte> const& bytes) override
    {
        if (auto made = createDirectory(url.parent()); !made)
            return made;
        ::chmod([pathOf(url.parent()) fileSystemRepresentation], 0700); // the folder keeps others out from the start
        auto written = write(url, bytes);
        if (written)
            ::chmod([pathOf(url) fileSystemRepresentation], 0600);
        return written;
    }

    Result<void> makeStartable(Url const& url) override
    {
        if (::chmod([pathOf(url) fileSystemRepresentation], 0700) != 0)
            return Failure { std::string(::strerror(errno)) };
        return {};
    }

    Result<std::vector<std::string>> names(Url const& folder) const override
    {
        NSError* error = nil;
        NSArray* const found = [m_files contentsOfDirectoryAtPath:pathOf(folder) error:&error];
        if (!found)
            return Failure { describe(error) };
        std::vector<std::string> names;
        for (NSString* name in found)
            names.push_back(fromNSString(name));
        return names;
    }

    Result<void> remove(Url const& url) override
    {
        NSError* error = nil;
        BOOL const removed = [m_files removeItemAtURL:toNSURL(url) error:&error];
        return resultOf(removed, error);
    }

    Result<void> rename(Url const& from, Url const& to) override
    {
        NSError* error = nil;
        BOOL const renamed = [m_files moveItemAtURL:toNSURL(from) toURL:toNSURL(to) error:&error];
        return resultOf(renamed, error);
    }

private:
    NSString* pathOf(Url const& url) const { return toNSURL(url).path; }

    NSFileManager* m_files;
};

} // namespace

std::shared_ptr<FileSystem> makeFileSystem() { return std::make_shared<MacFileSystem>(); }

} // namespace zv
