#include "platform/linux/menu/MenuPresenter.h"

#include "app/menu/Menu.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace zv {

MenuPresenter::MenuPresenter(MenuPerformer& performer, MenuPlacer& placer)
    : m_performer(performer)
    , m_placer(placer)
    , m_accessibleParent(std::make_unique<MenuAccessibleParent>())
    , m_window(new MenuWindow(m_accessibleParent.get()))
{
    m_window->setAccessibleName(m_accessibleParent->accessibleName());
    m_window->onChosen = [this](auto target, Qt::KeyboardModifiers held) { m_performer.perform(std::move(target), held); };
    m_window->onClosed = [this] { closed(); };
    m_window->placer = &m_placer;
    m_placer.onLost = m_lifetime.guard([this] { close(); });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, m_window, [this] { m_window->setScreen(QGuiApplication::primaryScreen()); });
}

MenuPresenter::~MenuPresenter() = default;

void MenuPresenter::prepare(std::shared_ptr<Menu> const& menu)
{
    if (isOpen())
        return;
    m_window->winId();
    m_window->windowHandle()->setCursor(Qt::ArrowCursor); // reads the theme of cursors
    m_window->pose(menu);
}

/// Readies the window for the menu. Unless told, the toolkit keeps it for the screen that it was on first, even when that has gone.
void MenuPresenter::show(std::shared_ptr<Menu> const& menu, QPoint at)
{
    close();
    if (auto* screen = QGuiApplication::screenAt(at))
        m_window->setScreen(screen);
    if (QAccessible::isActive())
        m_accessibleParent->show();
    m_window->setMenu(menu);
}

void MenuPresenter::openByKey(std::shared_ptr<Menu> const& menu)
{
    close();
    m_placer.find(std::nullopt, m_lifetime.guard([this, menu](std::optional<QPoint> pointer) {
        auto const centre = QGuiApplication::primaryScreen()->availableGeometry().center();
        show(menu, pointer.value_or(centre));
        m_window->popUpByKey(pointer.value_or(centre));
        if (!pointer)
            m_window->move(centre - m_window->rect().center());
    }));
}

/// Where there is no pointer, below the corner.
void MenuPresenter::open(std::shared_ptr<Menu> const& menu, std::optional<QPoint> pixel, ModifierMask extra)
{
    close();
    m_placer.find(pixel, m_lifetime.guard([this, menu, extra](std::optional<QPoint> at) {
        auto const place = at.value_or(QGuiApplication::primaryScreen()->availableGeometry().topLeft());
        show(menu, place);
        m_performer.modifiers().setOpeningWith(extra);
        m_window->popup(place);
        m_performer.modifiers().setOpeningWith(ModifierMask::none);
    }));
}

/// Later, as the closing window still holds the chosen entry; and the screen is given back when
/// that was performed, as a text can be copied only by a program that has the keyboard.
void MenuPresenter::closed()
{
    m_performer.later(m_lifetime.guard([this] {
        m_window->forget();
        m_performer.later(m_lifetime.guard([this] {
            if (!isOpen())
                m_placer.leave();
        }));
    }));
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
