#pragma once

#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/lists/SettingsPanes.h"

#include <vector>

namespace zv {

/// The settings panes of the running desktop, read from its application entries.
class DesktopSettingsPanes : public SettingsPanes {
public:
    /// `catalog` outlives this.
    explicit DesktopSettingsPanes(ApplicationCatalog& catalog)
        : m_catalog(catalog)
    {
    }
    void list(std::function<void(std::vector<SettingsPane>)> done) override;

private:
    ApplicationCatalog& m_catalog;
};

/// The panes that the desktop marks as its settings, even those kept out of menus; where it marks
/// none, every listed entry of the settings category.
[[nodiscard]] std::vector<SettingsPane> settingsPanesIn(ApplicationIndex const& index);

} // namespace zv
