#pragma once

#include "app/model/MenuItem.h"
#include "app/model/OwnItems.h"
#include "platform/files/Resources.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zv {

/// An entry of the palette of items to add.
struct LibraryEntry {
    std::string id; ///< unique, and stable across starts
    std::string title;
    std::string localizedDescription;
    MenuItem itemTemplate; ///< needs a fresh id when it is added
    std::string group; ///< the palette's heading above it; may be empty
    std::optional<OwnItem::Kind> own {}; ///< asks for an item of the user's own instead

    friend bool operator==(LibraryEntry const&, LibraryEntry const&) = default;
};

[[nodiscard]] std::size_t hashValue(LibraryEntry const& entry);

enum class LibraryMode { everything, appleMenu };

/// The entries of the resource "Library", in its order. Invalid entries are skipped.
[[nodiscard]] std::vector<LibraryEntry> loadItemLibrary(Resources const& resources, LocationServices services, LibraryMode mode);

} // namespace zv
