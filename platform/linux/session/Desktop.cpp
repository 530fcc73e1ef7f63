#include "platform/linux/session/Desktop.h"

#include "base/Split.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace zv {

namespace {

struct DesktopName {
    std::string_view name; ///< lower case
    Desktop desktop;
};

/// Entries of XDG_CURRENT_DESKTOP: https://specifications.freedesktop.org/menu-spec, "Registered
/// OnlyShowIn Environments", and further names in use.
constexpr DesktopName names[] = {
    { "gnome", Desktop::gnome },
    { "gnome-classic", Desktop::gnome },
    { "gnome-flashback", Desktop::gnome },
    { "unity", Desktop::gnome },
    { "kde", Desktop::kde },
    { "xfce", Desktop::xfce },
    { "mate", Desktop::mate },
    { "x-cinnamon", Desktop::cinnamon },
    { "cinnamon", Desktop::cinnamon },
    { "lxqt", Desktop::lxqt },
};

} // namespace

Desktop desktopFromText(std::string_view text)
{
    auto const lowered = lowerCased(text);
    for (auto const name : split(lowered, ':')) {
        auto const* const found = std::ranges::find(names, name, &DesktopName::name);
        if (found != std::end(names))
            return found->desktop;
    }
    return Desktop::other;
}

} // namespace zv
