#pragma once

#include "base/Url.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace zv {

struct RecentServer {
    Url url; ///< the server, or anything on it
    std::int64_t lastUsed = 0; ///< seconds since 1970; 0 when unknown
};

/// Recently connected servers. Main thread only, callbacks too.
class RecentServers {
public:
    /// The servers in no order, duplicates included; nothing when the list cannot be read.
    using List = std::optional<std::vector<RecentServer>>;

    virtual ~RecentServers() = default;
    /// Calls `done` once: before it returns, or later. Mounts nothing, asks no server.
    virtual void list(std::function<void(List)> done) = 0;
};

} // namespace zv
