#pragma once

#include "platform/desk/KeyPress.h"
#include "platform/linux/menu/EntryMenuPopup.h"
#include "platform/linux/menu/MenuDragging.h"
#include "platform/linux/menu/MenuMirror.h"
#include "platform/linux/menu/MenuPicture.h"
#include "platform/linux/menu/MenuTyping.h"
#include "platform/linux/menu/SubmenuAim.h"

#include <QBasicTimer>
#include <QMenu>

#include <functional>
#include <memory>

namespace zv {

class Menu;
class MenuActionTarget;
class MenuPlacer;

/// A level of an open menu: shows a Menu, asks it to fill itself right before it opens, and
/// follows later fills. The window passes the toolkit's events on: to the mirror of the entries,
/// the typing, and the picture.
class MenuWindow : public QMenu {
    Q_OBJECT
public:
    explicit MenuWindow(QWidget* parent);
    ~MenuWindow() override;

    /// Fills and draws itself unseen, and forgets the menu: its first opening is like any later one then.
    void pose(std::shared_ptr<Menu> menu);
    void setMenu(std::shared_ptr<Menu> menu);
    [[nodiscard]] Menu const* menu() const { return m_menu.get(); }
    /// Releases the menu and prepares the next opening, in which most menus look the same: the
    /// window and the looks of its entries stay.
    void forget();

    /// Pops up with the first entry selected.
    void popUpByKey(QPoint at);

    /// Performs the key's usual menu step once.
    void step(int key);
    /// Closes all and performs the entry with that shortcut; false when there is none.
    bool choseByShortcut(QKeyEvent const& event);
    void closeAll() { topMenu().close(); }
    void closeAllAndChoose(std::shared_ptr<MenuActionTarget> const& target, Qt::KeyboardModifiers held = Qt::NoModifier);
    /// The window at the root of the tree.
    [[nodiscard]] MenuWindow& topMenu();
    /// The open menu's window at that point of the desktop; null for none.
    [[nodiscard]] static MenuWindow* at(QPoint point);
    void layOutAgain();
    [[nodiscard]] bool showsEntryMenu() const { return m_entryMenu.isOpen(); }
    /// True while an entry that cannot be chosen has a menu of its own, which keys must reach.
    [[nodiscard]] bool selectsDisabled() const { return m_selectsDisabled; }
    void setVisible(bool visible) override;
    /// The distance that a menu too tall for its screen keeps from the screen's edges.
    [[nodiscard]] int edgeDistance() const { return m_edgeDistance; }
    /// The part that shows entries, between the arrows of a menu that scrolls.
    [[nodiscard]] QRect sight() const;

    /// Performs an entry's action; called by the window at the root of the tree.
    std::function<void(std::shared_ptr<MenuActionTarget>, Qt::KeyboardModifiers)> onChosen;
    /// Reads the keyboard for shortcuts; asked by the window at the root of the tree.
    std::function<KeyPress(QKeyEvent const&)> readKey;
    /// Puts the windows of the tree on the desktop; null for windows that may stand anywhere. The root's counts.
    MenuPlacer* placer = nullptr;
    [[nodiscard]] MenuPlacer& usedPlacer();
    /// Called by the root when it has closed.
    std::function<void()> onClosed;
    /// Called by the root when a press elsewhere on the screen closes the menu.
    std::function<void(QPoint)> onPressedElsewhere;

protected:
    void actionEvent(QActionEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, QAction const* action) const override;

private:
    [[nodiscard]] MenuWindow* parentMenu() const { return qobject_cast<MenuWindow*>(parentWidget()); }
    void windowShows();
    [[nodiscard]] QRect freeArea();
    void keepOffPanels();
    void keepWithinPanels();
    void firstIsPainted();
    void poseWithIcons();
    void willOpen();
    void didHide();
    void chosen(QAction* action);
    [[nodiscard]] bool isOnItsWay(QPoint at);
    void rested();
    void pointAt(QPoint place);
    void mirror();
    void refilled();
    [[nodiscard]] MenuEntry const* entryOf(QAction const* action) const;
    [[nodiscard]] bool isPlain() const;

    std::shared_ptr<Menu> m_menu;
    MenuMirror m_mirror;
    MenuTyping m_typing;
    EntryMenuPopup m_entryMenu;
    MenuDragging m_dragging;
    MenuPicture m_picture;
    SubmenuAim m_aim;
    qint64 m_moveTime = 0; ///< of the last move, in the root
    QBasicTimer m_rest; ///< runs while the pointer is on its way to a submenu
    QPoint m_place; ///< where it stood when it had opened
    int m_edgeDistance = 0;
    bool m_isLayingOut = false;
    bool m_handlesKey = false;
    bool m_selectsDisabled = false;
    bool m_isOpenedByKey = false; ///< opened by key: its first entry is selected, however late it comes
};

} // namespace zv
