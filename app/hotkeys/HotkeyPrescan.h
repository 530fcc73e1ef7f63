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
/// By the folder's path without links.
using ShortcutsByFolder = std::map<std::string, FolderShortcuts>;

/// Folders beyond this are not looked into; their shortcuts are learnt when they are opened.
inline constexpr std::size_t maximumPrescannedFolders = 2000;

/// Looks for shortcuts in the names below `roots`, breadth first, `depth` levels deep (the
/// roots are the first), each folder once whatever ways lead to it. Has an entry for every
/// folder that could be read. Any thread.
[[nodiscard]] ShortcutsByFolder prescanHotkeys(
    FolderReader const& reader, FileSystem const& files, std::vector<Url> const& roots, std::int64_t depth, HiddenFiles hiddenFiles);

} // namespace zv
