#pragma once

#include "app/model/KeyEquivalentSpec.h"
#include "base/Url.h"

#include <optional>
#include <string>

namespace zv {

/// What choosing an entry does with it.
enum class DynamicEntryAction {
    openURL, ///< opens `url`
    activateApplication, ///< brings the running application with the entry's `id` to the front
    copyText, ///< copies the entry's `id` to the clipboard
};

/// One computed entry of a submenu that fills itself.
struct DynamicEntry {
    std::string id; ///< unique within its list
    std::string title; ///< valid UTF-8
    std::string sortName;
    std::optional<Url> url; ///< what choosing it opens, or its submenu lists
    std::optional<Url> fileURL; ///< gives its icon; what Command reveals
    bool isDirectory = false;
    bool isPackage = false;
    std::optional<std::string> unavailabilityReason;
    bool isSeparator = false;
    std::optional<KeyEquivalentSpec> hotkey; ///< from the file's name
    DynamicEntryAction action = DynamicEntryAction::openURL;

    friend bool operator==(DynamicEntry const&, DynamicEntry const&) = default;
};

} // namespace zv
