#pragma once

#include "app/menu/DynamicEntry.h"
#include "app/model/FolderChoices.h"
#include "platform/files/FolderReader.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace zv {

struct FolderListingOptions {
    bool showHiddenFiles = false;
    bool sortFoldersFirst = true;
    std::size_t limit = std::numeric_limits<std::size_t>::max(); ///< the most entries ordered and made

    FolderOrder order = FolderOrder::name;
    bool isReversed = false;
    std::string filter {}; ///< of files; folders stay

    [[nodiscard]] static auto tied(FolderListingOptions const& o)
    {
        return std::tie(o.showHiddenFiles, o.sortFoldersFirst, o.limit, o.order, o.isReversed, o.filter);
    }
    friend bool operator==(FolderListingOptions const&, FolderListingOptions const&) = default;
    friend bool operator<(FolderListingOptions const& a, FolderListingOptions const& b) { return tied(a) < tied(b); }
};

struct FolderListing {
    std::vector<DynamicEntry> entries; ///< the first ones, in order
    std::size_t totalCount = 0;
    std::vector<DynamicEntry> withHotkeys; ///< entries whose name carries a shortcut, beyond the limit too; unordered
    std::optional<FolderReadFailure> failure; ///< set if the one entry stands for the folder itself
};

/// Lists the folder's immediate children in a file manager's order: digits by value, case ignored,
/// folders first where wanted. An unreadable folder gives one entry with the reason. Any thread.
[[nodiscard]] FolderListing listFolder(FolderReader const& reader, Url const& folder, FolderListingOptions const& options);

} // namespace zv
