#include "platform/linux/menu/MenuPresenter.h"

#include "app/menu/Menu.h"
#include "platform/linux/menu/MenuPlacement.h"

#include <QAccessible>
#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace zv {

MenuPresenter::MenuPresenter(MenuPerformer& performer)
    : m_performer(performer)
    , m_accessibleParent(std::make_unique<MenuAccessibleParent>())
    , m_window(new MenuWindow(m_accessibleParent.get()))
{
    m_window->setAccessibleName(m_accessibleParent->accessibleName());
    m_window->onChosen = [this](auto target, Qt::KeyboardModifiers held) { m_performer.perform(std::move(target), held); };
    // Later, as the closing window still holds the chosen entry.
    m_window->onClosed = [this] { m_performer.later(m_lifetime.guard([this] { m_window->forget(); })); };
}

MenuPresenter::~MenuPresenter() = default;

void MenuPresenter::prepare()
{
    m_window->winId();
    (void)m_window->fontMetrics().horizontalAdvance(QStringLiteral("Zanthe Vell…"));
}

/// Readies the window for the menu.
void MenuPresenter::show(std::shared_ptr<Menu> const& menu)
{
    close();
    if (QAccessible::isActive())
        m_accessibleParent->show();
    m_window->setMenu(menu);
}

void MenuPresenter::openByKey(std::shared_ptr<Menu> const& menu)
{
    show(menu);
    auto const pointer = QCursor::pos();
    if (QGuiApplication::screenAt(pointer))
        return m_window->popUpByKey(pointer);
    auto const centre = QGuiApplication::primaryScreen()->availableGeometry().center();
    m_window->popUpByKey(centre);
    m_window->move(centre - m_window->rect().center());
}

void MenuPresenter::open(std::shared_ptr<Menu> const& menu, QPoint pixel, ModifierMask extra)
{
    show(menu);
    m_performer.modifiers().setOpeningWith(extra);
    m_window->popup(menuPositionFor(pixel));
    m_performer.modifiers().setOpeningWith(ModifierMask::none);
}

void MenuPresenter::close()
{
    if (isOpen())
        m_window->close();
}

void MenuPresenter::setPressedElsewhere(std::function<void(QPoint, Menu const*)> pressed)
{
    m_window->onPressedElsewhere = [this, pressed = std::move(pressed)](
                                       QPoint at) { m_performer.later(m_lifetime.guard([pressed, at, menu = m_window->menu()] { pressed(at, menu); })); };
}

bool MenuPresenter::isOpen() const { return m_window->isVisible(); }

} // namespace zv
