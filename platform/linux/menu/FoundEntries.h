#pragma once

#include "app/menu/MenuSearch.h"
#include "platform/linux/menu/MenuMirror.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

class QAction;

namespace zv {

class MenuWindow;

/// The entries that a search finds below an open menu, as actions of its window behind the menu's own.
class FoundEntries {
public:
    /// The window outlives it, and owns the actions. `onAnswer` is called when an answer comes later.
    FoundEntries(MenuWindow& window, std::function<void()> onAnswer);

    /// Looks for the text, of which the menu itself has that many matches.
    void find(std::string const& text, std::size_t matches);
    /// Shows the last answer.
    void show();
    /// Takes the actions away; what was read is kept for the next text.
    void drop();
    /// Ends the search; the actions stay.
    void end() { m_search = nullptr; }

    [[nodiscard]] std::size_t count() const { return m_answer.size(); }
    [[nodiscard]] bool isSearching() const { return m_isSearching; }
    /// The entry that an action stands for; null for other actions.
    [[nodiscard]] MenuEntry const* entryOf(QAction const* action) const;
    void fetchIconsSoon() { m_mirror.fetchIconsSoon(); }

private:
    void take(MenuSearch::Found found);

    MenuWindow& m_window;
    std::function<void()> m_onAnswer;
    std::vector<MenuEntry> m_answer;
    std::shared_ptr<Menu> m_shown = std::make_shared<Menu>(); ///< the entries, behind a separator where others come before
    MenuMirror m_mirror;
    std::shared_ptr<MenuSearch> m_search; ///< null until something was typed
    bool m_isBehindOthers = false;
    bool m_isSearching = false;
    bool m_isAsking = false; ///< within find()
};

} // namespace zv
