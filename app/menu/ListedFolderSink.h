#pragma once

#include "app/menu/DynamicEntry.h"

#include <vector>

namespace zv {

/// Receives the shortcuts in file names, folder by folder, as they are listed.
class ListedFolderSink {
public:
    virtual ~ListedFolderSink() = default;
    /// `withHotkeys` are the folder's entries whose name carries a shortcut; may be empty.
    virtual void folderListed(Url const& folder, std::vector<DynamicEntry> const& withHotkeys) = 0;
};

} // namespace zv
