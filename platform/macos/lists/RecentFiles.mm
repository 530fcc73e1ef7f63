#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"
#include "platform/macos/lists/MetadataQuery.h"

namespace zv {

namespace {

class SpotlightSearch : public RecentFilesSearch {
public:
    SpotlightSearch(RecentFilesQuestion const& question, RecentFiles::Done done)
        : m_query([[NSMetadataQuery alloc] init])
        , m_limit(question.limit)
        , m_done(std::move(done))
    {
        m_query.predicate = [NSPredicate predicateFromMetadataQueryString:toNSString(metadataQueryString(question))];
        NSSortDescriptor* const newestFirst = [[NSSortDescriptor alloc] initWithKey:NSMetadataItemLastUsedDateKey ascending:NO];
        m_query.sortDescriptors = @[ newestFirst ];
        m_query.searchScopes = @[ NSMetadataQueryLocalComputerScope ];
        // The main queue delivers results while a menu is open; the run loop might not.
        m_query.operationQueue = NSOperationQueue.mainQueue;
        m_observer = [NSNotificationCenter.defaultCenter addObserverForName:NSMetadataQueryDidFinishGatheringNotification
                                                                     object:m_query
                                                                      queue:NSOperationQueue.mainQueue
                                                                 usingBlock:^(NSNotification*) { finish(); }];
        [m_query startQuery];
    }
    ~SpotlightSearch() override { stop(); }

private:
    void finish()
    {
        stop();
        auto files = firstFiles(m_query.resultCount, m_limit, [this](std::size_t index) { return pathOfResult(index); });
        auto const done = m_done; // outlives the search, which it may destroy
        done(std::move(files));
    }

    void stop()
    {
        [m_query stopQuery];
        if (m_observer)
            [NSNotificationCenter.defaultCenter removeObserver:m_observer];
        m_observer = nil;
    }

    std::optional<std::string> pathOfResult(std::size_t index) const
    {
        id const path = [[m_query resultAtIndex:index] valueForAttribute:NSMetadataItemPathKey];
        return [path isKindOfClass:[NSString class]] ? std::optional(fromNSString(path)) : std::nullopt;
    }

    NSMetadataQuery* m_query;
    std::size_t m_limit;
    RecentFiles::Done m_done;
    id m_observer = nil;
};

class SpotlightRecentFiles : public RecentFiles {
public:
    std::unique_ptr<RecentFilesSearch> find(RecentFilesQuestion const& question, Done done) override
    {
        return std::make_unique<SpotlightSearch>(question, std::move(done));
    }
};

} // namespace

std::unique_ptr<RecentFiles> makeRecentFiles() { return std::make_unique<SpotlightRecentFiles>(); }

} // namespace zv
