#pragma once

#include "app/lists/RecentItemsProvider.h"
#include "base/Lifetime.h"
#include "platform/time/Clock.h"

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace zv {

/// Caches the recent-item lists, so that their submenus fill at once. Queries a list at most every
/// five seconds, never twice at the same time. Main thread only.
class RecentItemsCache {
public:
    using Done = std::function<void(std::vector<DynamicEntry> const&)>;
    using Limit = std::function<std::int64_t(RecentItemsScope)>;

    /// `limit` tells how many entries of a scope are wanted.
    RecentItemsCache(RecentItemsProvider& provider, Limit limit, Clock const& clock);

    /// The cached list of any age; null before the scope's first query has ended. The pointer holds
    /// until the next turn of the loop.
    [[nodiscard]] std::vector<DynamicEntry> const* entries(RecentItemsScope scope) const;
    /// Starts a query, unless one is running or the cached list is fresh and of the current limit.
    void refresh(RecentItemsScope scope);
    /// Calls `done` with the result of the running query, or of a new one.
    void load(RecentItemsScope scope, Done done);

private:
    struct Cached {
        std::vector<DynamicEntry> entries;
        Instant loaded;
        std::int64_t limit;
    };

    [[nodiscard]] bool isFresh(RecentItemsScope scope) const;
    void startQuery(RecentItemsScope scope);
    void finishQuery(RecentItemsScope scope, std::int64_t limit, std::vector<DynamicEntry> entries);

    RecentItemsProvider& m_provider;
    Limit m_limit;
    Clock const& m_clock;
    std::map<RecentItemsScope, Cached> m_cached;
    std::map<RecentItemsScope, std::vector<Done>> m_queries; ///< running queries, with their waiting callers
    Lifetime m_lifetime;
};

} // namespace zv
