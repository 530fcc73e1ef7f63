#include "platform/linux/menu/EntryMenuPopup.h"

#include "app/menu/EntryMenus.h"
#include "platform/linux/menu/MenuWindow.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>

#include <utility>

namespace zv {

namespace {

bool opensMenu(QKeyEvent const& event) { return event.key() == Qt::Key_Menu || (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier); }

bool opensFolder(QKeyEvent const& event)
{
    return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) && event.modifiers().testFlag(Qt::ShiftModifier);
}

} // namespace

EntryMenuPopup::~EntryMenuPopup() { delete m_popup; }

bool EntryMenuPopup::takes(QMouseEvent const& event)
{
    auto const* action = m_window.actionAt(event.position().toPoint());
    if (!action)
        return false;
    if (event.button() == Qt::LeftButton)
        return isSecondPress(event, action) && openFolder(action, event.modifiers());
    if (event.button() != Qt::RightButton)
        return false;
    open(action, event.globalPosition().toPoint(), By::pointer);
    return true;
}

/// Knows a double click by itself: a press that the toolkit passes on from an open submenu carries no time, so the next
/// one is no second to it.
bool EntryMenuPopup::isSecondPress(QMouseEvent const& event, QAction const* action)
{
    bool const isSoon = m_sincePress.isValid() && m_sincePress.elapsed() < QGuiApplication::styleHints()->mouseDoubleClickInterval();
    bool const isSecond = event.type() == QEvent::MouseButtonDblClick || (isSoon && action == m_pressed);
    m_pressed = isSecond ? nullptr : action;
    m_sincePress.start();
    return isSecond;
}

bool EntryMenuPopup::takes(QKeyEvent const& event)
{
    auto* action = m_window.activeAction();
    if (!action)
        return false;
    if (opensFolder(event))
        return openFolder(action, event.modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier));
    if (!opensMenu(event))
        return false;
    open(action, m_window.mapToGlobal(m_window.actionGeometry(action).center()), By::key);
    return true;
}

bool EntryMenuPopup::isOpen() const { return m_popup && m_popup->isVisible(); }

void EntryMenuPopup::close()
{
    if (m_popup)
        m_popup->close();
}

/// A press beside all menus closes them all: to the toolkit this one is no part of the others.
void EntryMenuPopup::closed()
{
    bool const isPressed = QGuiApplication::mouseButtons() != Qt::NoButton;
    if (isPressed && !MenuWindow::at(QCursor::pos()))
        m_window.topMenu().close();
}

bool EntryMenuPopup::openFolder(QAction const* action, Qt::KeyboardModifiers held)
{
    auto const* entry = m_entryOf(action);
    auto const target = entry && entry->submenu && entry->subject.menus ? entry->subject.menus->openingOf(entry->subject) : nullptr;
    if (!target)
        return false;
    m_window.closeAllAndChoose(target, held);
    return true;
}

/// Makes a window of its own, whose choice closes the whole menu.
void EntryMenuPopup::open(QAction const* action, QPoint at, By by)
{
    auto const* entry = m_entryOf(action);
    auto shown = entry && entry->subject.menus ? entry->subject.menus->menuOf(*entry) : MenuEntry {};
    if (!shown.submenu)
        return;
    m_shown = std::make_shared<MenuEntry const>(std::move(shown));
    delete m_popup;
    m_popup = new MenuWindow(m_window.topMenu().parentWidget());
    m_popup->placer = &m_window.usedPlacer();
    m_popup->onChosen = [this](auto target, Qt::KeyboardModifiers held) { m_window.closeAllAndChoose(target, held); };
    m_popup->onClosed = [this] { closed(); };
    m_popup->setMenu(m_shown->submenu);
    if (by == By::key)
        m_popup->popUpByKey(at);
    else
        m_popup->popup(at);
}

} // namespace zv
