#pragma once

#include "app/menu/DynamicEntry.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace zv {

/// The four lists of recently used items.
enum class RecentItemsScope { all, applications, folders, documents };

/// Asks the system what was used lately. Main thread only.
class RecentItemsQuerying {
public:
    virtual ~RecentItemsQuerying() = default;
    /// At most `limit` entries, newest first. Calls `done` exactly once, on the main thread;
    /// never before it returns.
    virtual void entries(RecentItemsScope scope, std::int64_t limit, std::function<void(std::vector<DynamicEntry>)> done) = 0;
};

} // namespace zv
