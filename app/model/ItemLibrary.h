#pragma once

#include "app/model/MenuItem.h"
#include "platform/files/Resources.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zv {

/// One entry of the palette of things that can be added to the menu.
struct LibraryEntry {
    std::string id; ///< unique, and the same at every start
    std::string title;
    std::string localizedDescription;
    MenuItem itemTemplate; ///< give what is added a fresh id
    std::string group; ///< the palette's heading above it; may be empty

    friend bool operator==(LibraryEntry const&, LibraryEntry const&) = default;
};

[[nodiscard]] std::size_t hashValue(LibraryEntry const& entry);

enum class LibraryMode { everything, appleMenu };

/// The entries of the resource "Library", in its order. A wrong entry is skipped.
[[nodiscard]] std::vector<LibraryEntry> loadItemLibrary(Resources const& resources, LocationServices services, LibraryMode mode);

} // namespace zv
