#pragma once

#include "base/Url.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace zv {

using BookmarkData = std::vector<std::byte>;

struct ResolvedBookmark {
    Url url;
    bool isStale = false; ///< found, but the data should be made anew
};

using MountingWork = std::function<std::optional<Url>()>;

/// Opaque bytes that find a file again after it was moved or renamed. Never asks the user and
/// never mounts, but for the work of mounting(). Any thread.
class Bookmarks {
public:
    virtual ~Bookmarks() = default;
    [[nodiscard]] virtual std::optional<BookmarkData> create(Url const& url) const = 0;
    [[nodiscard]] virtual std::optional<ResolvedBookmark> resolve(BookmarkData const& data) const = 0;
    /// Whether the file lies on a server that is not mounted now, and can be mounted again. Asks no server.
    [[nodiscard]] virtual bool isOnUnmountedServer(BookmarkData const& data) const = 0;
    /// The work that mounts the server and finds the file there; the system may ask for a password.
    /// It takes as long as the server does, and owns all it touches: for Tasks::runDetached().
    [[nodiscard]] virtual MountingWork mounting(BookmarkData const& data) const = 0;
};

} // namespace zv
