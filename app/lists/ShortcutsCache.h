#pragma once

#include "app/actions/ShortcutsProvider.h"
#include "base/Lifetime.h"
#include "platform/time/Clock.h"
#include "platform/time/Tasks.h"

#include <functional>
#include <optional>
#include <vector>

namespace zv {

/// The last known list of shortcuts, so that no menu waits for the tool. Main thread only.
class ShortcutsCache {
public:
    struct Cached {
        ShortcutsLibrary library;
        Instant loaded;
    };
    static constexpr std::chrono::seconds freshFor { 30 };

    ShortcutsCache(ShortcutsProvider provider, Clock const& clock, Tasks& tasks)
        : m_provider(std::move(provider))
        , m_clock(clock)
        , m_tasks(tasks)
    {
    }

    /// Reloads the list in the background, unless a load is running or has just ended.
    void refresh();
    /// Null until the first load has ended. The pointer holds until the next load ends.
    [[nodiscard]] ShortcutsLibrary const* library() const { return m_cached ? &m_cached->library : nullptr; }
    /// Calls `done` once, when the next load ends.
    void whenLoaded(std::function<void()> done) { m_waiting.push_back(std::move(done)); }

private:
    [[nodiscard]] bool isFresh() const;
    void store(ShortcutsLibrary library);

    ShortcutsProvider m_provider;
    Clock const& m_clock;
    Tasks& m_tasks;
    std::optional<Cached> m_cached;
    bool m_isLoading = false;
    std::vector<std::function<void()>> m_waiting;
    Lifetime m_lifetime;
};

} // namespace zv
