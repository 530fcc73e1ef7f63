#pragma once

#include "app/model/MenuItem.h"
#include "app/model/PropertyListJson.h"
#include "platform/text/PropertyListFormat.h"
#include "tests/fakes/FakeFiles.h"

#include <nlohmann/json.hpp>

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

/// Hands the text to the reader that its first character, a digit, names.
template <std::size_t count> int readBy(void (*const (&readers)[count])(std::string_view text), std::string_view input)
{
    if (!input.empty())
        readers[static_cast<unsigned char>(input[0] - '0') % count](input.substr(1));
    return 0;
}

/// Services over an empty disk.
inline LocationServices services()
{
    static fakes::FakeFileSystem files;
    static fakes::FakeBookmarks bookmarks { files };
    return { files, bookmarks, "/home/ada" };
}

/// Whether the items are the same, also where they hold NaN, which equals nothing. Their stored forms
/// need not be the same: a binary one may hold equal values once or twice.
inline bool areSame(std::vector<MenuItem> const& a, std::vector<MenuItem> const& b)
{
    return a == b || toJson(toPropertyList(a)).dump() == toJson(toPropertyList(b)).dump();
}

/// Requires that checked items read back unchanged, from a document and from drag records.
inline void requireRoundTrips(std::vector<MenuItem> const& items)
{
    auto const written = writePropertyList(toPropertyList(items));
    require(written.ok(), "a menu that passed the check cannot be written");
    auto const reread = menuItemsFromPropertyList(*readPropertyList(*written));
    require(reread.ok(), "a written menu cannot be read");
    require(areSame(*reread, items), "a written menu reads as another one");
    for (auto const& item : items) {
        auto const dragged = menuItemFromDragRecord(toDragRecord(item));
        require(dragged.ok(), "a drag record cannot be read");
        require(areSame({ *dragged }, { item }), "a drag record reads as another item");
    }
}

} // namespace zv::fuzz
