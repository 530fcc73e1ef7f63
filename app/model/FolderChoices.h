#pragma once

#include "app/model/MenuItem.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

enum class FolderOrder : std::uint8_t { name, dateChanged, dateAdded, size, kind };

/// What an item's folder shows and in which order, where that differs from the preferences. Kept under one key among the
/// item's unrecognized ones, which every version writes back.
struct FolderChoices {
    FolderOrder order = FolderOrder::name;
    bool isReversed = false; ///< the newest, the largest, or Z first
    std::optional<bool> foldersFirst; ///< none: the preference
    std::optional<bool> showHidden;
    std::string filter; ///< "*.pdf, report*"; empty for all files

    friend bool operator==(FolderChoices const&, FolderChoices const&) = default;
};

[[nodiscard]] FolderChoices folderChoicesOf(MenuItem const& item);
/// Takes the key away where nothing is chosen.
void setFolderChoices(MenuItem& item, FolderChoices const& choices);

/// Whether a file's name fits one of the patterns, which commas part: "*" stands for any text, "?" for a character; a
/// pattern without them for a part of the name. Case counts nowhere. An empty filter fits all.
[[nodiscard]] bool fitsFilter(std::string_view name, std::string_view filter);

} // namespace zv
