#pragma once

#include "platform/System.h"

#include <string>

namespace zv {

/// The settings' texts that differ between systems.
struct SettingsWording {
    std::string replaceMenu;
    std::string replaceMenuHelp;
    std::string logo;
    std::string statusItem;
    std::string statusItemHelp;
    std::string noPresenceNote;
    std::string openAtLoginHelp;
    std::string loginApprovalNote; ///< shown where the system keeps the program from opening
    std::string loginApprovalButton; ///< opens the system's settings of that
    std::string statusItemIsNotShown; ///< the remedy where nothing shows status icons
    /// Words the system's reason for not opening the program at login as a sentence.
    std::string (*loginFailure)(std::string const& reason) = [](std::string const& reason) { return reason; };
    std::string commandIcons; ///< empty where commands always have icons
    std::string commandIconsHelp;
    std::string depth; ///< the inspector's title for how deep a folder opens

    [[nodiscard]] static SettingsWording of(SystemKind system);
};

} // namespace zv
