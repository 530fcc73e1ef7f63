#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

namespace zv {

namespace {

/// The system's list of recent servers, the newest format first. It is an archive whose
/// items hold bookmarks; resolving one without mounting gives the server's address. No document
/// describes it: LSSharedFileList.h, which gave this list once, is deprecated. Nil when there is
/// none; nothing when there is one that may not be read, as where Full Disk Access is asked for
/// (mpco/AlfredWorkflow-Recent-Documents#14).
std::optional<NSData*> archive()
{
    NSURL* const home = NSFileManager.defaultManager.homeDirectoryForCurrentUser;
    NSURL* const folder = [home URLByAppendingPathComponent:@"Library/Application Support/com.apple.sharedfilelist"];
    for (NSString* extension in @[ @"sfl4", @"sfl3", @"sfl2" ]) {
        NSString* const name = [@"com.apple.LSSharedFileList.RecentServers." stringByAppendingString:extension];
        NSError* failure = nil;
        NSData* const data = [NSData dataWithContentsOfURL:[folder URLByAppendingPathComponent:name] options:0 error:&failure];
        if (data)
            return data;
        if (failure.code != NSFileReadNoSuchFileError)
            return std::nullopt;
    }
    return nil;
}

NSArray* itemsOf(NSData* data)
{
    NSSet* const classes = [NSSet setWithObjects:[NSDictionary class], [NSArray class], [NSString class], [NSData class], [NSNumber class], [NSUUID class],
                                  [NSDate class], [NSURL class], nil];
    id const root = [NSKeyedUnarchiver unarchivedObjectOfClasses:classes fromData:data error:nullptr];
    id const items = [root isKindOfClass:[NSDictionary class]] ? [root objectForKey:@"items"] : nil;
    return [items isKindOfClass:[NSArray class]] ? items : nil;
}

std::optional<Url> serverOf(id item)
{
    id const bookmark = [item isKindOfClass:[NSDictionary class]] ? [item objectForKey:@"Bookmark"] : nil;
    if (![bookmark isKindOfClass:[NSData class]])
        return std::nullopt;
    BOOL isStale = NO;
    NSURL* const url = [NSURL URLByResolvingBookmarkData:bookmark
                                                 options:NSURLBookmarkResolutionWithoutUI | NSURLBookmarkResolutionWithoutMounting
                                           relativeToURL:nil
                                     bookmarkDataIsStale:&isStale
                                                   error:nullptr];
    return url ? std::optional(fromNSURL(url)) : std::nullopt;
}

class SharedFileListServers : public RecentServers {
public:
    void list(std::function<void(List)> done) override
    {
        auto const data = archive();
        if (data && !*data)
            return done(std::vector<RecentServer>());
        NSArray* const items = data ? itemsOf(*data) : nil;
        if (!items)
            return done(std::nullopt);
        std::vector<RecentServer> servers;
        auto position = static_cast<std::int64_t>(items.count); // the list is in order, but tells no dates
        for (id item in items) {
            if (auto url = serverOf(item))
                servers.push_back({ std::move(*url), position });
            --position;
        }
        done(std::move(servers));
    }
};

} // namespace

std::unique_ptr<RecentServers> makeRecentServers() { return std::make_unique<SharedFileListServers>(); }

} // namespace zv
