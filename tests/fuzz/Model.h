#pragma once

#include "app/model/MenuItem.h"
#include "platform/text/PropertyListFormat.h"
#include "tests/fakes/FakeFiles.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>
#include <vector>

namespace zv::fuzz {

inline void require(bool holds, char const* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

inline std::span<std::byte const> bytesAt(std::uint8_t const* data, std::size_t size) { return { reinterpret_cast<std::byte const*>(data), size }; }
inline std::string_view textAt(std::uint8_t const* data, std::size_t size) { return { reinterpret_cast<char const*>(data), size }; }

/// Services over an empty disk.
inline LocationServices services()
{
    static fakes::FakeFileSystem files;
    static fakes::FakeBookmarks bookmarks { files };
    return { files, bookmarks, "/home/ada" };
}

/// The items as they are stored, to be compared: no number equals NaN.
inline std::vector<std::byte> stored(std::vector<MenuItem> const& items)
{
    auto const bytes = writePropertyList(toPropertyList(items));
    require(bytes.ok(), "a menu that passed the check cannot be written");
    return *bytes;
}

/// Requires that checked items read back unchanged, from a document and from drag records.
inline void requireRoundTrips(std::vector<MenuItem> const& items)
{
    auto const written = stored(items);
    auto const reread = menuItemsFromPropertyList(*readPropertyList(written));
    require(reread.ok(), "a written menu cannot be read");
    require(stored(*reread) == written, "a written menu reads as another one");
    for (auto const& item : items) {
        auto const dragged = menuItemFromDragRecord(toDragRecord(item));
        require(dragged.ok(), "a drag record cannot be read");
        require(stored({ *dragged }) == stored({ item }), "a drag record reads as another item");
    }
}

} // namespace zv::fuzz
