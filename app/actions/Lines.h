#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

namespace zv {

/// The text split at line feeds, without its empty lines. Views into `text`.
[[nodiscard]] inline std::vector<std::string_view> nonEmptyLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        auto const line = text.substr(0, text.find('\n'));
        if (!line.empty())
            lines.push_back(line);
        text.remove_prefix(std::min(text.size(), line.size() + 1));
    }
    return lines;
}

} // namespace zv
