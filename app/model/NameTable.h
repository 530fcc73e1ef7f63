#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zv {

/// Finds the position of a name in a fixed list, ignoring case. Names that differ only in case are
/// a programming error and stop the program.
class NameTable {
public:
    explicit NameTable(std::span<std::string_view const> names);

    [[nodiscard]] std::optional<std::size_t> find(std::string_view name) const;

private:
    std::unordered_map<std::string, std::size_t> m_positions; ///< by lower-case name
};

} // namespace zv
