#include "platform/linux/menu/MenuWindow.h"

#include "app/menu/Menu.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/menu/DesktopMenuPlacer.h"
#include "platform/linux/menu/EntryAccessible.h"
#include "platform/linux/menu/EntryAction.h"
#include "platform/linux/menu/MenuStyle.h"
#include "platform/linux/menu/QuietChanges.h"

#include <QActionEvent>
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStyleOptionMenuItem>
#include <QTimerEvent>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace zv {

namespace {

/// For how long a pointer on its way to a submenu may rest: longer than the pauses of a slow hand.
constexpr int restTime = 80; // milliseconds

} // namespace

MenuWindow::MenuWindow(QWidget* parent)
    : QMenu(parent)
    , m_mirror(*this)
    , m_typing(*this, m_mirror)
    , m_entryMenu(*this, [this](QAction const* action) { return entryOf(action); })
    , m_dragging(*this, [this](QAction const* action) { return entryOf(action); })
    , m_picture(*this, [this] { return isPlain(); })
{
    setToolTipsVisible(true);
    setAcceptDrops(true);
    connect(this, &QMenu::aboutToShow, this, &MenuWindow::willOpen);
    connect(this, &QMenu::aboutToHide, this, &MenuWindow::didHide);
    if (parentMenu())
        return;
    connect(this, &QMenu::triggered, this, &MenuWindow::chosen);
    // A blank icon, as a menu's window icon is never seen: the program's, in all its sizes, would
    // be sent to the display for each submenu, which takes its parent's.
    setWindowIcon(blankMenuIcon());
}

MenuWindow::~MenuWindow()
{
    if (m_menu)
        m_menu->onRefilled = nullptr;
}

void MenuWindow::setMenu(std::shared_ptr<Menu> menu) { m_menu = std::move(menu); }

void MenuWindow::pose(std::shared_ptr<Menu> menu)
{
    setMenu(std::move(menu));
    m_menu->needsUpdate();
    mirror();
    poseWithIcons();
}

/// Fetches icons, a few in each turn, then takes the picture; unless the window is opened meanwhile, which does it all.
void MenuWindow::poseWithIcons()
{
    if (isVisible() || !m_menu)
        return;
    m_mirror.fetchIcons();
    if (m_mirror.awaitsIcons()) {
        QMetaObject::invokeMethod(this, &MenuWindow::poseWithIcons, Qt::QueuedConnection);
        return;
    }
    resize(sizeHint());
    m_picture.takeUnseen();
    m_menu->didClose();
    forget();
}

void MenuWindow::forget()
{
    if (isVisible())
        return;
    QuietChanges const quiet(*this);
    m_typing.dropLine();
    m_typing.setMenu(nullptr);
    m_menu.reset();
    m_mirror.forget();
    (void)sizeHint(); // lays out the changed entries
}

/// Fills the window from the menu's current state.
void MenuWindow::mirror()
{
    QuietChanges const quiet(*this);
    m_typing.dropLine();
    m_mirror.show(*m_menu);
    m_typing.setMenu(m_menu.get());
    m_selectsDisabled = std::any_of(m_menu->entries.begin(), m_menu->entries.end(), [](auto const& entry) { return !entry.enabled && entry.subject.menus; });
}

void MenuWindow::popUpByKey(QPoint at)
{
    QScopedValueRollback const handling(m_handlesKey, true);
    popup(at);
    m_typing.selectFirst();
}

void MenuWindow::willOpen()
{
    if (m_isLayingOut || !m_menu)
        return;
    m_edgeDistance = 0;
    m_isOpenedByKey = parentMenu() ? parentMenu()->m_handlesKey : m_handlesKey;
    m_typing.begin();
    m_menu->needsUpdate();
    mirror();
    m_menu->onRefilled = [this] { refilled(); };
    if (!m_menu->title.empty())
        setAccessibleName(QString::fromStdString(m_menu->title));
    if (parentMenu())
        announceSubmenu(*this);
}

void MenuWindow::didHide()
{
    if (!m_menu)
        return;
    m_menu->onRefilled = nullptr;
    m_mirror.dropAwaitedIcons();
    m_typing.end();
    m_entryMenu.close();
    m_menu->didClose();
    if (parentMenu())
        announceSubmenu(*this);
    if (onClosed)
        onClosed();
}

void MenuWindow::chosen(QAction* action)
{
    auto const* entry = dynamic_cast<EntryAction const*>(action);
    if (entry && entry->target() && onChosen)
        onChosen(entry->target(), QGuiApplication::keyboardModifiers()); // modifiers of the choosing click or key
}

bool MenuWindow::choseByShortcut(QKeyEvent const& event)
{
    auto& root = topMenu();
    auto const target = root.m_menu && root.readKey ? root.m_menu->targetForKey(root.readKey(event)) : nullptr;
    if (!target)
        return false;
    root.close();
    if (root.onChosen)
        root.onChosen(target, Qt::NoModifier);
    return true;
}

MenuWindow& MenuWindow::topMenu()
{
    auto* root = this;
    while (root->parentMenu())
        root = root->parentMenu();
    return *root;
}

MenuPlacer& MenuWindow::usedPlacer()
{
    static DesktopMenuPlacer usual;
    auto* given = topMenu().placer;
    return given ? *given : usual;
}

/// The toolkit knows no native window that stands within another as a window of the desktop.
MenuWindow* MenuWindow::at(QPoint point)
{
    for (auto* widget : QApplication::topLevelWidgets()) {
        auto* menu = qobject_cast<MenuWindow*>(widget);
        if (menu && menu->isVisible() && menu->geometry().contains(point))
            return menu;
    }
    return nullptr;
}

void MenuWindow::setVisible(bool visible)
{
    if (visible)
        keepOffPanels();
    QMenu::setVisible(visible);
    if (!visible)
        return;
    if (!m_isLayingOut)
        m_place = pos();
    keepWithinPanels();
    usedPlacer().windowIsShown(*this);
}

QRect MenuWindow::freeArea() { return usedPlacer().freeAreaAt(geometry().center()); }

/// Moves the menu off panels that the toolkit does not know; a submenu that would then cover its parent, to the other side.
void MenuWindow::keepOffPanels()
{
    auto const free = freeArea();
    auto place = geometry();
    if (free.isEmpty() || free.contains(place))
        return;
    auto const* opener = parentMenu();
    if (opener && place.right() > free.right() && place.left() > opener->x() && opener->x() - place.width() >= free.left())
        place.moveRight(opener->x() - 1);
    place.moveLeft(std::max(free.left(), std::min(place.left(), free.right() + 1 - place.width())));
    place.moveTop(std::max(free.top(), std::min(place.top(), free.bottom() + 1 - place.height())));
    setGeometry(place);
}

/// Lays out a menu that is taller than what panels leave once more, to scroll between them.
void MenuWindow::keepWithinPanels()
{
    auto const free = freeArea();
    if (free.isEmpty() || m_edgeDistance > 0 || height() <= free.height())
        return;
    auto const whole = screen()->geometry();
    m_edgeDistance = std::max(free.top() - whole.top(), whole.bottom() - free.bottom());
    layOutAgain();
}

void MenuWindow::windowShows()
{
    m_picture.windowShows();
    windowHandle()->installEventFilter(this);
    usedPlacer().windowShows(*this);
}

void MenuWindow::closeAllAndChoose(std::shared_ptr<MenuActionTarget> const& target, Qt::KeyboardModifiers held)
{
    auto& root = topMenu();
    auto const chosen = target; // a copy, as closing may release the entry
    root.close();
    if (chosen && root.onChosen)
        root.onChosen(chosen, held);
}

MenuEntry const* MenuWindow::entryOf(QAction const* action) const
{
    if (auto const* found = m_typing.foundEntryOf(action))
        return found;
    auto const& actions = m_mirror.actions();
    auto const index = static_cast<std::size_t>(std::find(actions.begin(), actions.end(), action) - actions.begin());
    return m_menu && index < m_menu->entries.size() ? &m_menu->entries[index] : nullptr;
}

void MenuWindow::refilled()
{
    auto const selected = activeAction() ? activeAction()->text() : QString();
    setActiveAction(nullptr);
    mirror();
    if (m_typing.isFiltering()) {
        m_typing.filter();
        return;
    }
    layOutAgain();
    if (!selected.isEmpty())
        m_typing.select(selected);
    else if (m_isOpenedByKey)
        m_typing.selectFirst();
}

/// Lays out by popping up again where it opened, which recomputes size, place and scrolling: a menu that had to give
/// way while it was larger comes back. The distance that the toolkit keeps from a panel's edge it keeps from all: the
/// sides are left as they were.
void MenuWindow::layOutAgain()
{
    m_isLayingOut = true;
    popup(m_place);
    m_isLayingOut = false;
    if (auto const free = freeArea(); m_edgeDistance > 0 && !free.isEmpty())
        move(std::max(free.left(), std::min(m_place.x(), free.right() + 1 - width())), y());
    update();
}

QRect MenuWindow::sight() const
{
    auto sight = rect();
    int const arrow = style()->pixelMetric(QStyle::PM_MenuScrollerHeight, nullptr, this);
    auto const all = actions();
    for (auto* action : all) {
        auto const place = actionGeometry(action);
        if (place.top() < rect().top() && !place.isNull())
            sight.setTop(arrow);
        if (place.bottom() > rect().bottom())
            sight.setBottom(rect().bottom() - arrow);
    }
    return sight;
}

/// Keys come to the innermost menu; while nothing is selected there, the entry that it belongs to is.
void MenuWindow::keyPressEvent(QKeyEvent* event)
{
    auto& selected = activeAction() || !parentMenu() ? *this : *parentMenu();
    if (selected.m_entryMenu.takes(*event) || m_typing.takes(*event))
        return;
    QScopedValueRollback const handling(m_handlesKey, true);
    QMenu::keyPressEvent(event);
}

void MenuWindow::step(int key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QMenu::keyPressEvent(&event);
}

/// The right button chooses nothing.
void MenuWindow::mousePressEvent(QMouseEvent* event)
{
    bool const isRightClick = event->button() == Qt::RightButton && rect().contains(event->position().toPoint());
    if (!isRightClick)
        QMenu::mousePressEvent(event);
    auto const& root = topMenu();
    if (!root.isVisible() && root.onPressedElsewhere)
        root.onPressedElsewhere(event->globalPosition().toPoint());
}

void MenuWindow::mouseReleaseEvent(QMouseEvent* event)
{
    bool const isRightClick = event->button() == Qt::RightButton && rect().contains(event->position().toPoint());
    if (!isRightClick)
        QMenu::mouseReleaseEvent(event);
}

/// Passes over the entries on the way to the open submenu, until the pointer rests or turns. The
/// innermost menu gets all moves; those over another menu are passed on to that one.
void MenuWindow::mouseMoveEvent(QMouseEvent* event)
{
    auto const at = event->globalPosition().toPoint();
    if (event->timestamp() != 0) // a move that another menu passed on has none
        topMenu().m_moveTime = static_cast<qint64>(event->timestamp());
    bool const isOutside = parentMenu() && !MenuWindow::at(at);
    auto& over = isOutside ? *parentMenu() : *this;
    if (over.isOnItsWay(at))
        return over.m_rest.start(restTime, &over);
    if (over.m_rest.isActive() && over.actionAt(over.mapFromGlobal(at)) != over.activeAction())
        over.setActiveAction(nullptr); // closes the submenu from which the pointer has turned away
    over.m_rest.stop();
    QMenu::mouseMoveEvent(event);
}

bool MenuWindow::isOnItsWay(QPoint at)
{
    auto const* submenu = activeAction() ? activeAction()->menu() : nullptr;
    if (!submenu || !submenu->isVisible()) {
        m_aim.clear();
        return false;
    }
    m_aim.moved(at, topMenu().m_moveTime);
    return actionAt(mapFromGlobal(at)) != activeAction() && !submenu->geometry().contains(at) && m_aim.isAt(submenu->geometry());
}

/// The toolkit's timers, which open and close submenus, wait for a pointer that is on its way, and while an entry's own
/// menu is open, which a submenu would cover and take the pointer from.
void MenuWindow::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_rest.timerId())
        rested();
    else if (!m_rest.isActive() && !m_entryMenu.isOpen())
        QMenu::timerEvent(event);
}

/// A pointer that moves again, though its events are still to come, does not rest.
void MenuWindow::rested()
{
    auto const now = QCursor::pos();
    bool const isUnderWay = !m_aim.endsAt(now) && geometry().contains(now);
    if (isUnderWay)
        return;
    m_rest.stop();
    if (m_aim.endsAt(now))
        pointAt(mapFromGlobal(now));
}

/// Selects the entry at that place, as if the pointer had come there.
void MenuWindow::pointAt(QPoint place)
{
    if (!rect().contains(place))
        return;
    QMouseEvent move(QEvent::MouseMove, place, mapToGlobal(place), Qt::NoButton, QGuiApplication::mouseButtons(), QGuiApplication::keyboardModifiers());
    QMenu::mouseMoveEvent(&move);
}

void MenuWindow::wheelEvent(QWheelEvent* event)
{
    QMenu::wheelEvent(event);
    pointAt(event->position().toPoint());
    m_typing.selectInSight();
}

/// Hides instead of closing, which would destroy the native window: making one anew takes longer
/// than the rest of an opening.
void MenuWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    hide();
}

bool MenuWindow::event(QEvent* event)
{
    if (m_dragging.takes(*event))
        return true;
    switch (event->type()) {
    case QEvent::ShortcutOverride: // some keys would reach the menu as shortcuts of the program; all of them are the menu's
        event->accept();
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (m_entryMenu.takes(static_cast<QMouseEvent&>(*event)))
            return true;
        break;
    case QEvent::Leave: // the entry whose own menu is open stays selected
        if (m_entryMenu.isOpen())
            return true;
        break;
    case QEvent::Show:
        windowShows();
        break;
    case QEvent::FontChange: // what was cut short in the old font may fit now
        if (!isVisible())
            m_mirror.dropAll();
        [[fallthrough]];
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
        m_picture.spoil();
        break;
    case QEvent::UpdateLater:
        if (m_picture.isUpdateDone())
            return true;
        break;
    default:
        break;
    }
    return QMenu::event(event);
}

bool MenuWindow::eventFilter(QObject* watched, QEvent* event)
{
    bool const isOfWindow = watched == windowHandle();
    bool const isExposed = isOfWindow && event->type() == QEvent::Paint;
    bool const isForeignMove = isOfWindow && event->type() == QEvent::Move && usedPlacer().ownsWindowMoves();
    return isForeignMove || (isExposed && m_picture.isExposureDone()) || QMenu::eventFilter(watched, event);
}

void MenuWindow::hideEvent(QHideEvent* event)
{
    QMenu::hideEvent(event);
    usedPlacer().windowHid(*this);
}

void MenuWindow::actionEvent(QActionEvent* event)
{
    if (m_mirror.changesQuietly() && event->type() == QEvent::ActionChanged)
        return;
    m_picture.spoil();
    QMenu::actionEvent(event);
}

void MenuWindow::paintEvent(QPaintEvent* event)
{
    bool const isFirst = m_picture.isFirst(*event);
    if (isFirst && m_picture.isCurrent())
        m_picture.paint();
    else
        QMenu::paintEvent(event);
    if (isFirst)
        firstIsPainted();
    m_mirror.fetchIconsSoon();
    m_typing.fetchIconsSoon();
}

void MenuWindow::firstIsPainted()
{
    m_picture.firstIsPainted();
    QMetaObject::invokeMethod(
        this, [this] { usedPlacer().windowIsShown(*this); }, Qt::QueuedConnection);
}

/// Whether the root's window looks as it does when it opens. Submenus have no pictures.
bool MenuWindow::isPlain() const { return isVisible() && !activeAction() && !m_mirror.awaitsIcons() && !m_typing.hasLine() && !parentMenu(); }

// The column is added here, not in the action's text, which assistive tools read out as the entry's name.
void MenuWindow::initStyleOption(QStyleOptionMenuItem* option, QAction const* action) const
{
    QMenu::initStyleOption(option, action);
    option->text = MenuStyle::shortenedTitle(option->text, option->fontMetrics);
    auto const* entry = dynamic_cast<EntryAction const*>(action);
    if (entry && entry->color())
        MenuStyle::color(*option, *entry->color());
    auto const column = entry ? entry->column() : QString();
    if (column.isEmpty())
        return;
    option->text += u'\t' + column;
    option->reservedShortcutWidth = entry->columnEnd();
}

} // namespace zv
