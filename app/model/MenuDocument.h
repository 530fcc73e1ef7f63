#pragma once

#include "app/model/MenuItem.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace zv {

/// A menu read from a file, checked as a whole.
struct ImportedMenu {
    std::vector<MenuItem> items;
    std::size_t itemCount = 0; ///< including all levels
    /// Items with a fresh id, as an earlier item of the file had theirs.
    std::size_t renewedIds = 0;
};

/// The menu document as an XML property list.
[[nodiscard]] Result<std::vector<std::byte>> menuDocument(std::vector<MenuItem> const& items);

/// Reads the document form, also as the value of "Menu" in a dictionary (a copy of the whole
/// settings file), and the older form, a dictionary with "MenuDesc". Stricter than loading, which
/// skips wrong records: a file is taken whole or not at all.
[[nodiscard]] Result<ImportedMenu, ReadFailure> readMenuDocument(std::span<std::byte const> bytes, LocationServices services);

} // namespace zv
