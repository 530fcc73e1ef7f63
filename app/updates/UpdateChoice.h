#pragma once

#include "platform/program/Appcast.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zv {

/// What an item of a feed must suit to be offered.
struct UpdateCriteria {
    std::string currentVersion;
    std::string operatingSystem;
    std::string systemVersion; ///< empty: limits are not held against it
    std::set<std::string> channels; ///< beside the default one
    std::string skippedVersion; ///< not offered by scheduled checks unless critical; empty for none
};

/// The newest item that suits, when it is newer than what runs; the first of equals. It is
/// critical only where it is so for what runs; its release page is a page of the web, or none.
[[nodiscard]] std::optional<AppcastItem> chooseUpdate(std::vector<AppcastItem> const& items, UpdateCriteria const& criteria);

/// Tags removed, character references resolved, block ends as line breaks.
[[nodiscard]] std::string plainTextOfNotes(std::string const& notes);

} // namespace zv
