#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"
#import "platform/macos/files/LinkTargets.h"

namespace zv {

namespace {

/// What a bookmark tells of its volume without being resolved: where it was mounted, and how to
/// mount it again, which only a server's volume has (NSURLVolumeURLForRemountingKey). Asked for when
/// the bookmark is made, as only then it is stored for certain.
NSArray* serverKeys() { return @[ NSURLVolumeURLKey, NSURLVolumeURLForRemountingKey ]; }

std::optional<ResolvedBookmark> resolved(BookmarkData const& data, NSURLBookmarkResolutionOptions options)
{
    BOOL isStale = NO;
    NSURL* const url = [NSURL URLByResolvingBookmarkData:toNSData(data) options:options relativeToURL:nil bookmarkDataIsStale:&isStale error:nullptr];
    return url ? std::optional(ResolvedBookmark { fromNSURL(url), isStale != NO }) : std::nullopt;
}

class MacBookmarks : public Bookmarks {
public:
    std::optional<BookmarkData> create(Url const& url) const override
    {
        NSData* const data = [toNSURL(url) bookmarkDataWithOptions:0 includingResourceValuesForKeys:serverKeys() relativeToURL:nil error:nullptr];
        return data ? std::optional(fromNSData(data)) : std::nullopt;
    }

    std::optional<ResolvedBookmark> resolve(BookmarkData const& data) const override
    {
        // Nothing is mounted either: a server that is away must not hold up the start.
        return resolved(data, NSURLBookmarkResolutionWithoutUI | NSURLBookmarkResolutionWithoutMounting);
    }

    bool isOnUnmountedServer(BookmarkData const& data) const override
    {
        NSDictionary* const values = [NSURL resourceValuesForKeys:serverKeys() fromBookmarkData:toNSData(data)];
        NSString* const volume = [[values objectForKey:NSURLVolumeURLKey] path];
        return volume && [values objectForKey:NSURLVolumeURLForRemountingKey] && !isMountPoint(fromNSString(volume));
    }

    MountingWork mounting(BookmarkData const& data) const override
    {
        return [data]() -> std::optional<Url> {
            @autoreleasepool {
                auto found = resolved(data, 0);
                return found ? std::optional(std::move(found->url)) : std::nullopt;
            }
        };
    }
};

} // namespace

std::unique_ptr<Bookmarks> makeBookmarks() { return std::make_unique<MacBookmarks>(); }

} // namespace zv
