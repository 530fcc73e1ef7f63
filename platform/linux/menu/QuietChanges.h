#pragma once

#include <QWidget>

namespace zv {

/// While it lives, changes of a menu's actions do not lay the menu out anew, which takes as long
/// as the menu is; once at the end is enough.
class QuietChanges {
public:
    explicit QuietChanges(QWidget& menu)
        : m_menu(menu)
        , m_wasVisible(menu.isVisible())
    {
        m_menu.setAttribute(Qt::WA_WState_Visible, false);
    }
    ~QuietChanges() { m_menu.setAttribute(Qt::WA_WState_Visible, m_wasVisible); }
    QuietChanges(QuietChanges const&) = delete;
    QuietChanges& operator=(QuietChanges const&) = delete;

private:
    QWidget& m_menu;
    bool m_wasVisible;
};

} // namespace zv
