#pragma once

#include "app/menubar/MenuFilter.h"

#include <QString>

#include <cstddef>
#include <memory>

class QAction;
class QKeyEvent;
class QLabel;

namespace zv {

class FoundEntries;
class MenuMirror;
class MenuWindow;
struct MenuEntry;

/// The keys of an open menu: they move, filter and search by typed text, and choose.
class MenuTyping {
public:
    /// Both outlive it.
    MenuTyping(MenuWindow& window, MenuMirror const& mirror);
    ~MenuTyping();
    MenuTyping(MenuTyping const&) = delete;
    MenuTyping& operator=(MenuTyping const&) = delete;

    /// Starts with nothing typed, as the menu is about to open.
    void begin();
    /// The mirrored menu; null for none.
    void setMenu(Menu const* menu);

    /// False for a key that the toolkit handles.
    bool takes(QKeyEvent const& event);
    [[nodiscard]] bool isFiltering() const { return !m_filter.isEmpty(); }
    /// Shows the entries that match the typed text, looks for more below them, and selects the first.
    void filter();
    /// Ends the search, as the menu closes.
    void end();

    /// Whether the line with the typed text is part of the menu, perhaps empty.
    [[nodiscard]] bool hasLine() const { return m_line != nullptr; }
    void dropLine();
    /// The entry of an action that the search has found; null for others.
    [[nodiscard]] MenuEntry const* foundEntryOf(QAction const* action) const;
    void fetchIconsSoon();

    void selectFirst();
    /// Selects the entry with that text; nothing where there is none.
    void select(QString const& text);
    /// Selects the nearest entry that is to be seen, where the selected one is not.
    void selectInSight();

private:
    bool typed(QKeyEvent const& event);
    bool edited(QKeyEvent const& event);
    bool moved(int key);
    bool choseByShortcut(QKeyEvent const& event);
    void press(int key, int times = 1);
    void answered();
    [[nodiscard]] bool isAtHand() const;
    void select(QAction const& wanted);
    void addLine();
    void showLine();
    [[nodiscard]] std::ptrdiff_t matchCount() const;

    MenuWindow& m_window;
    MenuMirror const& m_mirror;
    MenuFilter m_filter;
    std::unique_ptr<FoundEntries> m_found; ///< null until something was typed
    std::ptrdiff_t m_matches = 0; ///< in the menu itself
    QAction* m_line = nullptr;
    QLabel* m_lineText = nullptr; ///< its label, owned by the line
    QAction* m_noMatches = nullptr; ///< present with the line
};

} // namespace zv
