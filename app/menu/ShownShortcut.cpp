#include "app/menu/ShownShortcut.h"

#include "base/Translation.h"

#include <algorithm>
#include <utility>

namespace zv {

std::string shownKeyName(std::string_view english)
{
    // TRANSLATORS: a key, as keyboards for the language name it
    static constexpr Sentence names[] = { markc("key", "Ctrl"), markc("key", "Shift"), markc("key", "Space") };
    auto const* const name = std::ranges::find(names, english, &Sentence::english);
    return name == std::end(names) ? std::string(english) : tr(*name);
}

std::string shownShortcut(std::string_view glyphs, SystemKind system)
{
    static constexpr std::pair<std::string_view, std::string_view> words[]
        = { { "⌃", "Ctrl" }, { "⌥", "Alt" }, { "⇧", "Shift" }, { "⌘", "Super" }, { "⎋", "Esc" } };
    std::string shown;
    while (system == SystemKind::linuxDesktop && !glyphs.empty()) {
        auto const known = std::ranges::find_if(words, [&](auto const& word) { return glyphs.starts_with(word.first); });
        if (known == std::end(words))
            break;
        glyphs.remove_prefix(known->first.size());
        shown += shownKeyName(known->second) + (glyphs.empty() ? "" : "+");
    }
    return shown.append(glyphs);
}

} // namespace zv
