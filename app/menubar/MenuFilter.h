#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv {

class Menu;

/// What the user types into an open menu, and which of its entries that leaves. The menu
/// itself is never changed. Main thread only.
class MenuFilter {
public:
    /// The menu changed or opened: its entries are looked at anew at the next question.
    void setMenu(Menu const* menu);

    [[nodiscard]] bool isEmpty() const { return m_text.empty(); }
    [[nodiscard]] std::string const& text() const { return m_text; }
    void append(std::string_view typed) { m_text += typed; }
    /// Takes back the last character.
    void removeLast();
    void clear() { m_text.clear(); }

    /// One answer an entry, in their order: whether its title holds what was typed, case and
    /// accents ignored. Separators are shown only while nothing is typed.
    [[nodiscard]] std::vector<bool> visibleEntries();

private:
    void foldTitles();

    Menu const* m_menu = nullptr;
    std::string m_text;
    std::vector<std::string> m_foldedTitles; ///< empty for separators
    bool m_isFolded = false;
};

} // namespace zv
