#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace zv {

/// A run of top-level items that took another's place.
struct MenuStretch {
    std::size_t first = 0;
    std::size_t before = 0; ///< items that were there
    std::size_t after = 0; ///< items that are there

    friend bool operator==(MenuStretch const&, MenuStretch const&) = default;
};

/// Puts `by` in the place of `count` elements from `first` on, which are there. What follows moves only where the number differs.
template <class T> void replaceStretch(std::vector<T>& list, std::size_t first, std::size_t count, std::vector<T> by)
{
    auto const inPlace = static_cast<std::ptrdiff_t>(std::min(count, by.size()));
    auto const start = list.begin() + static_cast<std::ptrdiff_t>(first);
    auto const rest = std::move(by.begin(), by.begin() + inPlace, start);
    auto const place = list.erase(rest, start + static_cast<std::ptrdiff_t>(count));
    list.insert(place, std::make_move_iterator(by.begin() + inPlace), std::make_move_iterator(by.end()));
}

} // namespace zv
