#include "app/settings/SettingsPage.h"

#include "base/Translation.h"

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

std::string SettingsSection::heading() const
{
    // TRANSLATORS: the heading of a group of settings; French has a blank before the colon, Chinese and Japanese a wide one
    return tr("%1:", title);
}

SettingsChoice choiceOfLevels(std::int64_t levels) { return { trn("%1 level", "%1 levels", static_cast<std::size_t>(levels)), levels }; }

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
