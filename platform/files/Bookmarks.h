#pragma once

#include "base/Url.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace zv {

using BookmarkData = std::vector<std::byte>;

struct ResolvedBookmark {
    Url url;
    bool isStale = false; ///< found, but the data should be made anew
};

/// Opaque bytes that find a file again after it was moved or renamed. Never asks the
/// user, never mounts. Any thread.
class Bookmarks {
public:
    virtual ~Bookmarks() = default;
    [[nodiscard]] virtual std::optional<BookmarkData> create(Url const& url) const = 0;
    [[nodiscard]] virtual std::optional<ResolvedBookmark> resolve(BookmarkData const& data) const = 0;
};

} // namespace zv
