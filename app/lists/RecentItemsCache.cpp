#include "app/lists/RecentItemsCache.h"

#include "base/MainThread.h"

#include <utility>

namespace zv {

namespace {

constexpr std::chrono::seconds freshFor { 5 };

} // namespace

RecentItemsCache::RecentItemsCache(RecentItemsProvider& provider, Limit limit, Clock const& clock)
    : m_provider(provider)
    , m_limit(std::move(limit))
    , m_clock(clock)
{
}

std::vector<DynamicEntry> const* RecentItemsCache::entries(RecentItemsScope scope) const
{
    auto const found = m_cached.find(scope);
    return found == m_cached.end() ? nullptr : &found->second.entries;
}

void RecentItemsCache::refresh(RecentItemsScope scope)
{
    assertMainThread();
    if (!m_queries.contains(scope) && !isFresh(scope))
        startQuery(scope);
}

void RecentItemsCache::load(RecentItemsScope scope, Done done)
{
    assertMainThread();
    auto const [waiting, isFirst] = m_queries.try_emplace(scope);
    waiting->second.push_back(std::move(done));
    if (isFirst)
        startQuery(scope);
}

bool RecentItemsCache::isFresh(RecentItemsScope scope) const
{
    auto const found = m_cached.find(scope);
    if (found == m_cached.end() || found->second.limit != m_limit(scope))
        return false;
    return m_clock.monotonic() - found->second.loaded < freshFor;
}

void RecentItemsCache::startQuery(RecentItemsScope scope)
{
    auto const limit = m_limit(scope);
    m_queries.try_emplace(scope);
    m_provider.entries(
        scope, limit, m_lifetime.guard([this, scope, limit](std::vector<DynamicEntry> entries) { finishQuery(scope, limit, std::move(entries)); }));
}

void RecentItemsCache::finishQuery(RecentItemsScope scope, std::int64_t limit, std::vector<DynamicEntry> entries)
{
    auto const waiting = m_queries.extract(scope);
    auto const& cached = m_cached.insert_or_assign(scope, Cached { std::move(entries), m_clock.monotonic(), limit }).first->second;
    if (waiting.empty())
        return;
    for (auto const& done : waiting.mapped())
        done(cached.entries);
}

} // namespace zv
