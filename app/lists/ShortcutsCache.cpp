#include "app/lists/ShortcutsCache.h"

#include "base/MainThread.h"

#include <utility>

namespace zv {

bool ShortcutsCache::isFresh() const { return m_cached && m_clock.monotonic() - m_cached->loaded < freshFor; }

void ShortcutsCache::refresh()
{
    assertMainThread();
    if (m_isLoading || isFresh())
        return;
    m_isLoading = true;
    auto keep = m_lifetime.guard([this](ShortcutsLibrary library) { store(std::move(library)); });
    m_tasks.runDetached(
        [provider = m_provider, keep] { return std::function<void()>([keep, library = provider.loadLibrary()]() mutable { keep(std::move(library)); }); });
}

void ShortcutsCache::store(ShortcutsLibrary library)
{
    m_cached = Cached { std::move(library), m_clock.monotonic() };
    m_isLoading = false;
    for (auto const& done : std::exchange(m_waiting, {}))
        done();
}

} // namespace zv
