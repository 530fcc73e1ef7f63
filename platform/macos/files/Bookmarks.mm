#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

namespace zv {

namespace {

class MacBookmarks : public Bookmarks {
public:
    std::optional<BookmarkData> create(Url const& url) const override
    {
        NSData* const data = [toNSURL(url) bookmarkDataWithOptions:0 includingResourceValuesForKeys:nil relativeToURL:nil error:nullptr];
        return data ? std::optional(fromNSData(data)) : std::nullopt;
    }

    std::optional<ResolvedBookmark> resolve(BookmarkData const& data) const override
    {
        BOOL isStale = NO;
        // Nothing is mounted either: a server that is away must not hold up the start.
        NSURL* const url = [NSURL URLByResolvingBookmarkData:toNSData(data)
                                                     options:NSURLBookmarkResolutionWithoutUI | NSURLBookmarkResolutionWithoutMounting
                                               relativeToURL:nil
                                         bookmarkDataIsStale:&isStale
                                                       error:nullptr];
        return url ? std::optional(ResolvedBookmark { fromNSURL(url), isStale != NO }) : std::nullopt;
    }
};

} // namespace

std::unique_ptr<Bookmarks> makeBookmarks()
{
    return std::make_unique<MacBookmarks>();
}

} // namespace zv
