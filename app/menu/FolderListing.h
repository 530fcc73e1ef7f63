#pragma once

#include "app/menu/DynamicEntry.h"
#include "platform/files/FolderReader.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

namespace zv {

struct FolderListingOptions {
    bool showHiddenFiles = false;
    bool sortFoldersFirst = true;
    std::size_t limit = std::numeric_limits<std::size_t>::max(); ///< only so many entries are ordered and made

    friend auto operator<=>(FolderListingOptions const&, FolderListingOptions const&) = default;
};

struct FolderListing {
    std::vector<DynamicEntry> entries; ///< the first ones, in order
    std::size_t totalCount = 0;
    std::vector<DynamicEntry> withHotkeys; ///< those whose name carries a shortcut, beyond the limit too; in no order
    std::optional<FolderReadFailure> failure; ///< why the one entry stands for the folder itself
};

/// The folder's immediate children in the order of a file manager: digits by value, case
/// ignored, folders first where wanted. A folder that cannot be read gives one entry
/// with the reason. Any thread.
[[nodiscard]] FolderListing listFolder(FolderReader const& reader, Url const& folder, FolderListingOptions const& options);

} // namespace zv
