#pragma once

#include "platform/files/Bookmarks.h"
#include "platform/linux/files/MountWatch.h"

#include <string>

namespace zv {

/// Bookmarks by path and identity. A file that is still at its path is found there; one that
/// was renamed is found by its identity among the files beside its last known place.
/// Of files on remote file systems only the path counts: to look for them might take forever.
class LinuxBookmarks : public Bookmarks {
public:
    explicit LinuxBookmarks(std::string mountInfoPath = MountWatch::systemTable);

    [[nodiscard]] std::optional<BookmarkData> create(Url const& url) const override;
    [[nodiscard]] std::optional<ResolvedBookmark> resolve(BookmarkData const& data) const override;

private:
    mutable MountWatch m_mounts;
};

} // namespace zv
