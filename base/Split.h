#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

namespace zv {

/// The parts of the text between separators, without the empty ones. Views into `text`.
[[nodiscard]] inline std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        auto const part = text.substr(0, text.find(separator));
        if (!part.empty())
            parts.push_back(part);
        text.remove_prefix(std::min(part.size() + 1, text.size()));
    }
    return parts;
}

} // namespace zv
