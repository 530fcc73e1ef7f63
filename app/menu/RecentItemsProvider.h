#pragma once

#include "app/menu/RecentItemsQuerying.h"
#include "platform/lists/MetadataQuery.h"

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <vector>

namespace zv {

/// What was used in the last thirty days, newest first, from the system's index of files.
/// Main thread only, callbacks too.
class RecentItemsProvider : public RecentItemsQuerying {
public:
    using Scope = RecentItemsScope;
    using Entries = std::vector<DynamicEntry>;
    using EntryForFile = std::function<DynamicEntry(Url const&)>;

    /// `queries` outlives this.
    RecentItemsProvider(MetadataQueries& queries, EntryForFile entryForFile);
    ~RecentItemsProvider() override;
    RecentItemsProvider(RecentItemsProvider const&) = delete;
    RecentItemsProvider& operator=(RecentItemsProvider const&) = delete;

    /// Calls `done` when the index has answered; never after this provider is gone.
    void entries(Scope scope, std::int64_t limit, std::function<void(Entries)> done) override;

private:
    struct Query;

    [[nodiscard]] Entries collect(Query const& query) const;
    [[nodiscard]] DynamicEntry entryFor(MetadataItem const& item) const;
    void finish(std::list<std::unique_ptr<Query>>::iterator query);

    MetadataQueries& m_queries;
    EntryForFile m_entryForFile;
    std::list<std::unique_ptr<Query>> m_running;
};

/// The index's query string for a scope.
[[nodiscard]] std::string metadataQueryString(RecentItemsProvider::Scope scope);

} // namespace zv
