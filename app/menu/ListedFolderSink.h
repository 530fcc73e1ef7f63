#pragma once

#include "app/menu/DynamicEntry.h"

#include <vector>

namespace zv {

/// Learns the shortcuts that file names carry, folder by folder, as they are listed.
class ListedFolderSink {
public:
    virtual ~ListedFolderSink() = default;
    /// `withHotkeys` are those entries of the folder whose name carries a shortcut; may be empty.
    virtual void folderListed(Url const& folder, std::vector<DynamicEntry> const& withHotkeys) = 0;
};

} // namespace zv
