#include "app/menu/RecentItemsProvider.h"

#include "app/menu/FileEntry.h"
#include "base/MainThread.h"

#include <algorithm>

namespace zv {

namespace {

constexpr char const* lastUsedDateKey = "kMDItemLastUsedDate";

std::string_view contentTypeCondition(RecentItemsProvider::Scope scope)
{
    switch (scope) {
    case RecentItemsProvider::Scope::all:
        return "";
    case RecentItemsProvider::Scope::applications:
        return " && kMDItemContentType == 'com.apple.application-bundle'";
    case RecentItemsProvider::Scope::folders:
        return " && kMDItemContentType == 'public.folder'";
    case RecentItemsProvider::Scope::documents:
        return " && kMDItemContentType != 'public.folder' && kMDItemContentType != 'com.apple.application-bundle'";
    }
    return "";
}

/// From the name alone, for a file that must not be touched.
DynamicEntry entryFromName(std::string const& path, bool isDirectory)
{
    auto const url = Url::fromPath(path);
    auto const name = url.lastPathComponent();
    return fileEntry(url, { name, {}, { isDirectory, false } });
}

} // namespace

std::string metadataQueryString(RecentItemsProvider::Scope scope)
{
    return "kMDItemLastUsedDate >= $time.now(-2592000)" + std::string(contentTypeCondition(scope));
}

struct RecentItemsProvider::Query {
    std::unique_ptr<MetadataQuery> query;
    std::int64_t limit = 0;
    std::function<void(Entries)> continuation;
};

RecentItemsProvider::RecentItemsProvider(MetadataQueries& queries, EntryForFile entryForFile)
    : m_queries(queries)
    , m_entryForFile(std::move(entryForFile))
{
}

RecentItemsProvider::~RecentItemsProvider() = default;

void RecentItemsProvider::entries(Scope scope, std::int64_t limit, std::function<void(Entries)> done)
{
    assertMainThread();
    auto const wanted = static_cast<std::size_t>(std::max<std::int64_t>(limit, 0));
    auto query = m_queries.make({ metadataQueryString(scope), lastUsedDateKey, SortDirection::descending, MetadataSearchScope::localComputer, wanted });
    auto& gathering = *query;
    auto const place = m_running.insert(m_running.end(), std::make_unique<Query>(Query { std::move(query), limit, std::move(done) }));
    gathering.onDidFinishGathering = [this, place] { finish(place); };
    gathering.start();
}

void RecentItemsProvider::finish(std::list<std::unique_ptr<Query>>::iterator place)
{
    // Taken out first: the caller may ask anew from within its callback.
    auto const query = std::move(*place);
    m_running.erase(place);
    query->query->stop();
    query->continuation(collect(*query));
}

RecentItemsProvider::Entries RecentItemsProvider::collect(Query const& query) const
{
    Entries entries;
    if (query.limit <= 0)
        return entries;
    auto const count = std::min(static_cast<std::size_t>(query.limit), query.query->resultCount());
    for (std::size_t i = 0; i < count; ++i) {
        if (auto const item = query.query->result(i); item.path)
            entries.push_back(entryFor(item));
    }
    return entries;
}

DynamicEntry RecentItemsProvider::entryFor(MetadataItem const& item) const
{
    if (item.isOnRemoteVolume)
        return entryFromName(*item.path, item.isDirectory);
    return m_entryForFile(Url::fromPath(*item.path));
}

} // namespace zv
