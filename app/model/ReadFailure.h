#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zv {

/// The reason why a menu could not be read or written: the first wrong record.
struct ReadFailure {
    std::vector<std::size_t> indexPath; ///< from the top list to the record; empty for the document itself
    std::string key; ///< of the record, "keyEquivalent.trigger" within one; empty when the record itself is wrong
    std::string reason; ///< "is missing", "is a string where an array is expected" …

    /// "item 3 › 2: "children" is missing" (counted from 1).
    [[nodiscard]] std::string description() const;

    friend bool operator==(ReadFailure const&, ReadFailure const&) = default;
};

} // namespace zv
