#pragma once

#include "base/Translation.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

class Menu;

/// Filters an open menu's entries by the typed text. The menu itself is never changed. Main thread only.
class MenuFilter {
public:
    /// Stands in place of the entries when none matches.
    static constexpr Sentence noMatches = mark("No Matches");

    /// Call when the menu opened or changed: its entries are read anew at the next query.
    void setMenu(Menu const* menu);

    [[nodiscard]] bool isEmpty() const { return m_text.empty(); }
    [[nodiscard]] std::string const& text() const { return m_text; }
    void append(std::string_view typed) { m_text += typed; }
    /// Removes the last character.
    void removeLast();
    void clear() { m_text.clear(); }

    /// The typed text and how many entries match, or what stands in their place, for those who hear the menu; empty when
    /// nothing is typed.
    [[nodiscard]] std::string announcement(std::ptrdiff_t matches, Sentence const& instead = noMatches) const;
    /// A flag for each entry, in their order: whether its title contains the typed text, ignoring
    /// case and accents. Separators are visible only if nothing is typed.
    [[nodiscard]] std::vector<bool> visibleEntries();

private:
    void foldTitles();

    Menu const* m_menu = nullptr;
    std::string m_text;
    std::vector<std::string> m_foldedTitles; ///< empty for separators
    bool m_isFolded = false;
};

} // namespace zv
