#include "platform/linux/apps/DesktopSettingsPanes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zv {

namespace {

/// The mark of a desktop's settings entries.
struct PaneMark {
    std::string_view desktop;
    std::string_view category; ///< empty where the id tells
    std::string_view idPrefix;
};

/// The marks are documented nowhere: they come from the entries that the desktops install.
constexpr std::array marks {
    PaneMark { "GNOME", "X-GNOME-Settings-Panel", "" },
    PaneMark { "Unity", "X-GNOME-Settings-Panel", "" },
    PaneMark { "Budgie", "X-GNOME-Settings-Panel", "" },
    PaneMark { "XFCE", "X-XFCE-SettingsDialog", "" },
    PaneMark { "KDE", "", "kcm_" },
    PaneMark { "X-Cinnamon", "", "cinnamon-settings-" },
};

bool hasMark(ApplicationEntry const& entry, PaneMark const& mark)
{
    return mark.category.empty() ? entry.id.starts_with(mark.idPrefix) : entry.hasCategory(mark.category);
}

bool isMarkedPane(ApplicationEntry const& entry, std::vector<std::string> const& desktops)
{
    if (entry.isHidden || !entry.isForThisDesktop)
        return false;
    return std::any_of(marks.begin(), marks.end(), [&](auto const& mark) {
        bool const isRunning = std::find(desktops.begin(), desktops.end(), mark.desktop) != desktops.end();
        return isRunning && hasMark(entry, mark);
    });
}

/// An entry with neither a parsable command nor bus activation cannot be opened.
bool canBeStarted(ApplicationEntry const& entry) { return entry.isDBusActivatable || entry.program().has_value(); }

SettingsPane paneFor(ApplicationEntry const& entry)
{
    auto const url = Url::fromPath(entry.path);
    return { entry.id, entry.name, url, url, entry.missingProgram() };
}

template <class Predicate> std::vector<SettingsPane> panesWhere(ApplicationIndex const& index, Predicate isPane)
{
    std::vector<SettingsPane> panes;
    for (auto const& entry : index.entries()) {
        if (isPane(entry) && canBeStarted(entry))
            panes.push_back(paneFor(entry));
    }
    return panes;
}

} // namespace

void DesktopSettingsPanes::list(std::function<void(std::vector<SettingsPane>)> done)
{
    m_catalog.withIndex([done = std::move(done)](auto const& index) { done(settingsPanesIn(*index)); });
}

std::vector<SettingsPane> settingsPanesIn(ApplicationIndex const& index)
{
    auto panes = panesWhere(index, [&](auto const& entry) { return isMarkedPane(entry, index.desktops()); });
    if (!panes.empty())
        return panes;
    return panesWhere(index, [](auto const& entry) { return entry.isListed() && entry.hasCategory("Settings"); });
}

} // namespace zv
