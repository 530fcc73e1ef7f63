#pragma once

#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/looks/GtkTheme.h"

#include <QFont>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The places where a desktop's look is written down.
struct LookSources {
    DesktopSettings settings;
    std::vector<std::string> dataFolders; ///< the user's own first

    /// The desktop's own file of settings, which tells of changes where nothing is published.
    [[nodiscard]] std::string settingsFile() const;
};

struct DesktopLook {
    std::optional<QFont> font;
    std::optional<ThemeLook> theme;
};

/// Reads the font and the colours of the desktop; what it does not say is missing. `isDark` asks for a theme's dark
/// variant.
[[nodiscard]] DesktopLook readDesktopLook(LookSources const& sources, bool isDark);

/// The factor by which published settings enlarge windows beyond their dots per inch.
[[nodiscard]] int scaleBesideDots(std::string_view published);

/// The font of a description such as "Noto Sans Bold 14"; nothing without a size.
/// https://docs.gtk.org/Pango/type_func.FontDescription.from_string.html
[[nodiscard]] std::optional<QFont> fontDescribed(std::string_view description);

} // namespace zv
