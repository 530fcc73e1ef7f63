#pragma once

#include "base/Url.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

struct SettingsPane {
    std::string id;
    std::string title; ///< in the user's language
    Url url; ///< opens the pane
    Url fileURL; ///< gives its icon
    std::string missingProgram; ///< to be installed before the pane can open; else empty
};

/// The panes of the system's settings. Main thread only, callbacks too.
class SettingsPanes {
public:
    virtual ~SettingsPanes() = default;
    /// Calls `done` once: before it returns, or later.
    virtual void list(std::function<void(std::vector<SettingsPane>)> done) = 0;
};

} // namespace zv
