#include "app/settings/SettingsPage.h"

#include <algorithm>

namespace zv {

std::string shapeOf(std::vector<SettingsSection> const& sections)
{
    std::string shape;
    for (auto const& section : sections) {
        shape += section.title + "\n";
        for (auto const& row : section.rows)
            shape += row.id + std::to_string(static_cast<int>(row.kind)) + " ";
    }
    return shape;
}

std::vector<SettingsChoice> choicesWith(std::int64_t stored, std::vector<SettingsChoice> offered)
{
    auto const isOffered = std::any_of(offered.begin(), offered.end(), [&](auto const& choice) { return choice.value == stored; });
    if (isOffered)
        return offered;
    auto const place = std::find_if(offered.begin(), offered.end(), [&](auto const& choice) { return choice.value > stored; });
    offered.insert(place, { std::to_string(stored), stored });
    return offered;
}

} // namespace zv
