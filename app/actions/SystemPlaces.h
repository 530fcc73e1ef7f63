#pragma once

#include "app/model/MenuItemKind.h"
#include "platform/session/DesktopCommands.h"

#include <optional>
#include <string_view>

namespace zv {

/// The target of a command on systems where it is fixed.
struct SystemPlaceTarget {
    enum class Form : std::uint8_t { settingsPane, application, webPage };
    MenuItemKind::Case kind;
    SystemPlace place;
    Form form;
    std::string_view target; ///< pane identifier, path, or address
};

/// Null for a kind that opens no place of the system.
[[nodiscard]] SystemPlaceTarget const* systemPlaceFor(MenuItemKind const& kind);

/// Pages of the system's settings and their anchors, which no document lists.
inline constexpr std::string_view automationPane = "com.apple.preference.security?Privacy_Automation";
inline constexpr std::string_view accessibilityPane = "com.apple.preference.security?Privacy_Accessibility";

} // namespace zv
