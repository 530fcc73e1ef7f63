#pragma once

#include "app/model/KeyEquivalentSpec.h"
#include "base/Url.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderReader.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zv {

/// The shortcuts that the names in one folder carry.
using FolderShortcuts = std::map<Url, KeyEquivalentSpec>;
/// Shortcuts by their folder's resolved path.
using ShortcutsByFolder = std::map<std::string, FolderShortcuts>;

/// The most folders scanned; shortcuts in others are learnt when they are opened.
inline constexpr std::size_t maximumPrescannedFolders = 2000;

/// Finds shortcuts in the names below `roots`, breadth first, `depth` levels deep (the roots are
/// the first), each folder once even if links lead to it. Has an entry for every readable folder.
/// Any thread.
[[nodiscard]] ShortcutsByFolder prescanHotkeys(
    FolderReader const& reader, FileSystem const& files, std::vector<Url> const& roots, std::int64_t depth, HiddenFiles hiddenFiles);

} // namespace zv
