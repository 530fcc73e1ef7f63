#pragma once

#include "app/menubar/MenuFilter.h"

#include <QString>

class QAction;
class QKeyEvent;
class QLabel;

namespace zv {

class MenuMirror;
class MenuWindow;

/// What keys do in an open menu: they move, filter by what is typed, and choose.
class MenuTyping {
public:
    /// Both outlive it.
    MenuTyping(MenuWindow& window, MenuMirror const& mirror);

    /// The menu is about to open, with nothing typed.
    void begin();
    /// The entries were mirrored anew; null for none.
    void setMenu(Menu const* menu);

    /// False for a key that is the toolkit's to handle.
    bool takes(QKeyEvent const& event);
    [[nodiscard]] bool isFiltering() const { return !m_filter.isEmpty(); }
    /// Shows the entries that what was typed leaves, and selects the first.
    void filter();

    /// Whether the line that says what was typed is part of the menu, maybe empty.
    [[nodiscard]] bool hasLine() const { return m_line != nullptr; }
    void dropLine();

    void selectFirst();
    /// Selects the entry with that text; nothing where there is none.
    void select(QString const& text);

private:
    bool typed(QKeyEvent const& event);
    bool edited(QKeyEvent const& event);
    bool moved(int key);
    bool choseByShortcut(QKeyEvent const& event);
    void press(int key, int times = 1);
    void addLine();
    void showLine();

    MenuWindow& m_window;
    MenuMirror const& m_mirror;
    MenuFilter m_filter;
    QAction* m_line = nullptr;
    QLabel* m_lineText = nullptr; ///< of that line, which owns it
};

} // namespace zv
