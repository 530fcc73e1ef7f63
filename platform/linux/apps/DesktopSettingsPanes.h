#pragma once

#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/lists/SettingsPanes.h"

#include <string>
#include <vector>

namespace zv {

/// The settings of the running desktop, by its application entries.
class DesktopSettingsPanes : public SettingsPanes {
public:
    /// `catalog` outlives this.
    DesktopSettingsPanes(ApplicationCatalog& catalog, std::vector<std::string> desktops);
    void list(std::function<void(std::vector<SettingsPane>)> done) override;

private:
    ApplicationCatalog& m_catalog;
    std::vector<std::string> m_desktops;
};

/// What the desktop itself counts among its settings, even where it keeps it out of menus;
/// where it marks nothing so, every listed entry that calls itself settings.
[[nodiscard]] std::vector<SettingsPane> settingsPanesIn(ApplicationIndex const& index, std::vector<std::string> const& desktops);

} // namespace zv
