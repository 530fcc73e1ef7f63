#pragma once

#include "platform/files/Bookmarks.h"
#include "platform/linux/files/MountWatch.h"

#include <string>

namespace zv {

/// Bookmarks by path and identity. A file still at its path is found there; a renamed one by its
/// identity among the files of its last known folder. On remote file systems only the path
/// counts: a search might hang.
class LinuxBookmarks : public Bookmarks {
public:
    explicit LinuxBookmarks(std::string mountInfoPath = MountWatch::systemTable);

    [[nodiscard]] std::optional<BookmarkData> create(Url const& url) const override;
    [[nodiscard]] std::optional<ResolvedBookmark> resolve(BookmarkData const& data) const override;
    /// Never: a path does not tell which server was mounted there.
    [[nodiscard]] bool isOnUnmountedServer(BookmarkData const&) const override { return false; }
    [[nodiscard]] MountingWork mounting(BookmarkData const&) const override
    {
        return [] { return std::nullopt; };
    }

private:
    mutable MountWatch m_mounts;
};

} // namespace zv
