#include "app/model/ShownShortcut.h"

#include <algorithm>
#include <utility>

namespace zv {

std::string shownShortcut(std::string_view glyphs, SystemKind system)
{
    static constexpr std::pair<std::string_view, std::string_view> words[]
        = { { "⌃", "Ctrl+" }, { "⌥", "Alt+" }, { "⇧", "Shift+" }, { "⌘", "Super+" }, { "⎋", "Esc" } };
    std::string shown;
    while (system == SystemKind::linuxDesktop && !glyphs.empty()) {
        auto const known = std::ranges::find_if(words, [&](auto const& word) { return glyphs.starts_with(word.first); });
        if (known == std::end(words))
            break;
        shown += known->second;
        glyphs.remove_prefix(known->first.size());
    }
    return shown.append(glyphs);
}

} // namespace zv
