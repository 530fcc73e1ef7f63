#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// A shortcut of the user's.
struct Shortcut {
    std::string id; ///< a UUID in its standard text form
    std::string name;
    friend bool operator==(Shortcut const&, Shortcut const&) = default;
};

struct ShortcutFolder {
    std::string id;
    std::string name;
    std::vector<Shortcut> shortcuts; ///< in the tool's order
    friend bool operator==(ShortcutFolder const&, ShortcutFolder const&) = default;
};

struct ShortcutsLibrary {
    std::vector<ShortcutFolder> folders;
    std::vector<Shortcut> ungrouped; ///< shortcuts in no folder
    std::optional<std::string> failure; ///< the first thing that went wrong while listing
    friend bool operator==(ShortcutsLibrary const&, ShortcutsLibrary const&) = default;
};

[[nodiscard]] inline std::size_t hashValue(Shortcut const& shortcut)
{
    std::hash<std::string> const hash;
    return hash(shortcut.id) * 31 + hash(shortcut.name);
}

} // namespace zv
