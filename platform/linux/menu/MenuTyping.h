#pragma once

#include "app/menubar/MenuFilter.h"

#include <QString>

#include <cstddef>

class QAction;
class QKeyEvent;
class QLabel;

namespace zv {

class MenuMirror;
class MenuWindow;

/// The keys of an open menu: they move, filter by typed text, and choose.
class MenuTyping {
public:
    /// Both outlive it.
    MenuTyping(MenuWindow& window, MenuMirror const& mirror);

    /// Starts with nothing typed, as the menu is about to open.
    void begin();
    /// The mirrored menu; null for none.
    void setMenu(Menu const* menu);

    /// False for a key that the toolkit handles.
    bool takes(QKeyEvent const& event);
    [[nodiscard]] bool isFiltering() const { return !m_filter.isEmpty(); }
    /// Shows the entries that match the typed text, and selects the first.
    void filter();

    /// Whether the line with the typed text is part of the menu, perhaps empty.
    [[nodiscard]] bool hasLine() const { return m_line != nullptr; }
    void dropLine();

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
    void select(QAction const& wanted);
    void addLine();
    void showLine(std::ptrdiff_t matches);

    MenuWindow& m_window;
    MenuMirror const& m_mirror;
    MenuFilter m_filter;
    QAction* m_line = nullptr;
    QLabel* m_lineText = nullptr; ///< its label, owned by the line
    QAction* m_noMatches = nullptr; ///< present with the line
};

} // namespace zv
