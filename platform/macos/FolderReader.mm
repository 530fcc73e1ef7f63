#import "platform/macos/Conversions.h"
#include "platform/macos/Factories.h"

#include <algorithm>
#include <sys/mount.h>
#include <sys/param.h>

namespace zv {

namespace {

// What a listing asks of every child in the one pass.
NSArray* prefetchedKeys()
{
    return [NSArray arrayWithObjects:NSURLIsDirectoryKey, NSURLIsPackageKey, NSURLIsHiddenKey, NSURLIsAliasFileKey, NSURLIsSymbolicLinkKey,
                    NSURLLocalizedNameKey, nil];
}

bool flag(NSURL* url, NSString* key)
{
    NSNumber* value = nil;
    return [url getResourceValue:&value forKey:key error:nullptr] && [value boolValue];
}

FolderReadFailure failureOf(NSError* error)
{
    switch ([error code]) {
    case NSFileReadNoPermissionError:
        return FolderReadFailure::notPermitted;
    case NSFileReadNoSuchFileError:
    case NSFileNoSuchFileError:
        return FolderReadFailure::notFound;
    default:
        return FolderReadFailure::failed;
    }
}

/// The kernel's own table: no volume is asked. Into memory of the caller's, for any thread.
std::vector<struct statfs> mountTable()
{
    int const expected = getfsstat(nullptr, 0, MNT_NOWAIT);
    std::vector<struct statfs> mounts(static_cast<std::size_t>(std::max(expected, 0)) + 4); // some may come in between
    int const count = getfsstat(mounts.data(), static_cast<int>(mounts.size() * sizeof(struct statfs)), MNT_NOWAIT);
    mounts.resize(static_cast<std::size_t>(std::max(count, 0)));
    return mounts;
}

/// What the mount point with the longest path says that holds the folder.
bool liesOnRemoteMount(std::string const& path)
{
    std::size_t longest = 0;
    bool isRemote = false;
    for (auto const& mount : mountTable()) {
        std::string_view const point = mount.f_mntonname;
        bool const holds = point == "/" || path == point || (path.starts_with(point) && path[point.size()] == '/');
        if (!holds || point.size() < longest)
            continue;
        longest = point.size();
        isRemote = (mount.f_flags & MNT_LOCAL) == 0;
    }
    return isRemote;
}

class MacFolderReader : public FolderReader {
public:
    Result<FolderContents, FolderReadFailure> read(Url const& folder, HiddenFiles hiddenFiles) const override
    {
        NSFileManager* const files = [[NSFileManager alloc] init];
        NSDirectoryEnumerationOptions const options = hiddenFiles == HiddenFiles::skipped ? NSDirectoryEnumerationSkipsHiddenFiles : 0;
        NSError* error = nil;
        NSArray* const children = [files contentsOfDirectoryAtURL:toNSURL(folder) includingPropertiesForKeys:prefetchedKeys() options:options error:&error];
        if (!children)
            return Failure { failureOf(error) };
        FolderContents contents;
        for (NSURL* child in children)
            add(child, contents);
        return contents;
    }

    bool isRemote(Url const& folder) const override { return liesOnRemoteMount(folder.path()); }

private:
    static void add(NSURL* child, FolderContents& contents)
    {
        std::string const name = fromNSString([child lastPathComponent]);
        NSString* localized = nil;
        [child getResourceValue:&localized forKey:NSURLLocalizedNameKey error:nullptr];
        bool const isLink = flag(child, NSURLIsSymbolicLinkKey) || flag(child, NSURLIsAliasFileKey);
        auto const shown = localized ? fromNSString(localized) : std::string();
        contents.add({ name, shown == name ? std::string_view() : std::string_view(shown), isLink ? traitsOfTarget(child) : traitsOf(child), isLink });
    }

    static FileTraits traitsOf(NSURL* url) { return { flag(url, NSURLIsDirectoryKey), flag(url, NSURLIsPackageKey) }; }

    static FileTraits traitsOfTarget(NSURL* link)
    {
        NSURL* const target = flag(link, NSURLIsSymbolicLinkKey)
            ? [link URLByResolvingSymlinksInPath]
            : [NSURL URLByResolvingAliasFileAtURL:link
                                          options:NSURLBookmarkResolutionWithoutUI | NSURLBookmarkResolutionWithoutMounting
                                            error:nullptr];
        if (!target)
            return {};
        if (liesOnRemoteMount(fromNSString([target path])))
            return { [[target pathExtension] length] == 0, false };
        return traitsOf(target);
    }
};

} // namespace

std::shared_ptr<FolderReader const> makeFolderReader()
{
    return std::make_shared<MacFolderReader>();
}

} // namespace zv
