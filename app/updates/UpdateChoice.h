#pragma once

#include "platform/program/Appcast.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zv {

/// The criteria that a feed's item must meet to be offered.
struct UpdateCriteria {
    std::string currentVersion;
    std::string operatingSystem;
    std::string systemVersion; ///< empty: limits are ignored
    std::set<std::string> channels; ///< besides the default one
    std::vector<std::string> packageEndings; ///< of what can be installed here
    std::string skippedVersion; ///< not offered by scheduled checks unless critical; empty for none
};

/// The newest suitable item that is newer than the running version; the first of equals. It is
/// critical only if it is so for the running version; its release page is a web page, or empty, and its download a
/// package for this system, or empty.
[[nodiscard]] std::optional<AppcastItem> chooseUpdate(std::vector<AppcastItem> const& items, UpdateCriteria const& criteria);

/// Removes tags, resolves character references, and turns block ends into line breaks.
[[nodiscard]] std::string plainTextOfNotes(std::string const& notes);

} // namespace zv
