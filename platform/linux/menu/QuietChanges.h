#pragma once

#include <QWidget>

namespace zv {

/// Suppresses layouts while a menu's actions change, as each takes time in proportion to the
/// menu's length; the menu is laid out once at the end.
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
