#pragma once

#include "app/lists/RecentItemsProvider.h"
#include "app/model/Preferences.h"
#include "base/Lifetime.h"
#include "platform/time/Clock.h"

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace zv {

/// Keeps the last known recent-item lists, so that their submenus fill at once. A list is
/// asked for at most every five seconds, never twice at the same time. Main thread only.
class RecentItemsCache {
public:
    using Done = std::function<void(std::vector<DynamicEntry> const&)>;

    RecentItemsCache(RecentItemsProvider& provider, Preferences const& preferences, Clock const& clock);

    /// Whatever their age; null before the first query for the scope has come back. The
    /// pointer holds until the next turn of the loop.
    [[nodiscard]] std::vector<DynamicEntry> const* entries(RecentItemsScope scope) const;
    /// Starts a query, unless one is running or what is here is fresh and of the current limit.
    void refresh(RecentItemsScope scope);
    /// Hands over the result of the running query, or of one that it starts.
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
    Preferences const& m_preferences;
    Clock const& m_clock;
    std::map<RecentItemsScope, Cached> m_cached;
    std::map<RecentItemsScope, std::vector<Done>> m_queries; ///< the running ones, with those who wait for them
    Lifetime m_lifetime;
};

} // namespace zv
