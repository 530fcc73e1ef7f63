#pragma once

#include <string_view>

namespace zv {

/// Whether the path is the folder or lies in it at any depth; links are not looked at.
[[nodiscard]] inline bool isAtOrBelow(std::string_view path, std::string_view folder)
{
    if (folder == "/")
        return true;
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

} // namespace zv
