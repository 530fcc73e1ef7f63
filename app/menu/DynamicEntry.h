#pragma once

#include "app/model/KeyEquivalentSpec.h"
#include "app/model/MenuItemKind.h"
#include "base/Url.h"
#include "platform/files/FolderReader.h"

#include <optional>
#include <string>

namespace zv {

/// The action when an entry is chosen.
enum class DynamicEntryAction {
    openURL, ///< opens `url`
    activateApplication, ///< brings the running application with the entry's `id` to the front
    copyText, ///< copies the entry's `id` to the clipboard
};

/// A computed entry of a submenu that fills itself.
struct DynamicEntry {
    std::string id; ///< unique within its list; empty in a folder's, where `fileURL` is
    std::string title; ///< valid UTF-8
    std::string sortName; ///< empty in a folder's list
    std::optional<Url> url; ///< the target to open, or the folder of its submenu
    std::optional<Url> fileURL; ///< gives the icon; the file that Command reveals
    bool isDirectory = false;
    bool isPackage = false;
    std::optional<std::string> unavailabilityReason;
    bool isSeparator = false;
    std::optional<KeyEquivalentSpec> hotkey; ///< from the file's name
    std::optional<NameDoubt> hotkeyDoubt {}; ///< why the name is not given that combination
    DynamicEntryAction action = DynamicEntryAction::openURL;
    std::optional<MenuItemKind::Case> recentList {}; ///< the list of recent things at whose top the entry can be kept

    friend bool operator==(DynamicEntry const&, DynamicEntry const&) = default;
};

} // namespace zv
