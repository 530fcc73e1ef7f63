#include "platform/linux/session/Desktop.h"

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
    std::string_view rest = lowered;
    while (!rest.empty()) {
        auto const name = rest.substr(0, rest.find(':'));
        auto const* const found = std::ranges::find(names, name, &DesktopName::name);
        if (found != std::end(names))
            return found->desktop;
        rest.remove_prefix(std::min(rest.size(), name.size() + 1));
    }
    return Desktop::other;
}

} // namespace zv
