#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

namespace zv {

namespace {

class SpotlightQuery : public MetadataQuery {
public:
    explicit SpotlightQuery(MetadataSearch const& search)
        : m_query([[NSMetadataQuery alloc] init])
    {
        [m_query setPredicate:[NSPredicate predicateFromMetadataQueryString:toNSString(search.queryString)]];
        BOOL const ascends = search.sortDirection == SortDirection::ascending;
        NSSortDescriptor* const order = [[NSSortDescriptor alloc] initWithKey:sortKeyOf(search) ascending:ascends];
        [m_query setSortDescriptors:[NSArray arrayWithObject:order]];
        [m_query setSearchScopes:[NSArray arrayWithObject:NSMetadataQueryLocalComputerScope]];
        // Left to the run loop, results might wait until the menu that wants them has closed.
        [m_query setOperationQueue:[NSOperationQueue mainQueue]];
    }
    ~SpotlightQuery() override { stop(); }

    void start() override
    {
        m_observer = [[NSNotificationCenter defaultCenter] addObserverForName:NSMetadataQueryDidFinishGatheringNotification
                                                                       object:m_query
                                                                        queue:[NSOperationQueue mainQueue]
                                                                   usingBlock:^(NSNotification*) {
                                                                       auto const finished = onDidFinishGathering; // may destroy the query
                                                                       if (finished)
                                                                           finished();
                                                                   }];
        [m_query startQuery];
    }

    void stop() override
    {
        [m_query stopQuery];
        if (m_observer)
            [[NSNotificationCenter defaultCenter] removeObserver:m_observer];
        m_observer = nil;
    }

    std::size_t resultCount() const override { return [m_query resultCount]; }

    MetadataItem result(std::size_t index) const override
    {
        MetadataItem item;
        id const path = [[m_query resultAtIndex:index] valueForAttribute:NSMetadataItemPathKey];
        if (![path isKindOfClass:[NSString class]])
            return item;
        item.path = fromNSString(path);
        item.isDirectory = [path hasSuffix:@"/"];
        return item;
    }

private:
    static NSString* sortKeyOf(MetadataSearch const& search)
    {
        NSString* const key = toNSString(search.sortKey);
        return [key isEqualToString:@"NSMetadataItemLastUsedDateKey"] ? NSMetadataItemLastUsedDateKey : key;
    }

    NSMetadataQuery* m_query;
    id m_observer = nil;
};

class SpotlightQueries : public MetadataQueries {
public:
    std::unique_ptr<MetadataQuery> make(MetadataSearch const& search) override { return std::make_unique<SpotlightQuery>(search); }
};

} // namespace

std::unique_ptr<MetadataQueries> makeMetadataQueries()
{
    return std::make_unique<SpotlightQueries>();
}

} // namespace zv
