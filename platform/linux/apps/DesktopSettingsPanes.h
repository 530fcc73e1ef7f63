#pragma once

#include "platform/linux/apps/ApplicationIndex.h"
#include "platform/lists/SettingsPanes.h"

#include <vector>

namespace zv {

/// The settings of the running desktop, by its application entries.
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

/// What the desktop itself counts among its settings, even where it keeps it out of menus;
/// where it marks nothing so, every listed entry that calls itself settings.
[[nodiscard]] std::vector<SettingsPane> settingsPanesIn(ApplicationIndex const& index);

} // namespace zv
