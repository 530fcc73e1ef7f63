#pragma once

#include "app/menubar/MenuFilter.h"

#include <QMenu>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QLabel;

namespace zv {

class Menu;
class MenuActionTarget;
struct MenuEntry;

/// One level of an open menu: shows a Menu of ours, asks it to fill itself right before it
/// opens, follows it when it fills later, and filters it by what is typed.
class MenuWindow : public QMenu {
    Q_OBJECT
public:
    explicit MenuWindow(QWidget* parent);
    ~MenuWindow() override;

    void setMenu(std::shared_ptr<Menu> menu);
    /// Fills the window from the menu as it stands.
    void mirror();
    /// Drops what was mirrored; the window itself stays for the next time.
    void forget();

    /// Runs what an entry does; called by the window at the root of the tree.
    std::function<void(std::shared_ptr<MenuActionTarget>, Qt::KeyboardModifiers)> onChosen;
    /// Called by the root when it has closed.
    std::function<void()> onClosed;

protected:
    void actionEvent(QActionEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, QAction const* action) const override;

private:
    class QuietChanges;

    [[nodiscard]] QAction* actionFor(MenuEntry const& entry);
    [[nodiscard]] QAction* submenuActionFor(MenuEntry const& entry);
    void dress(QAction& action, MenuEntry const& entry);
    [[nodiscard]] MenuWindow* root();

    void willOpen();
    void didHide();
    void chosen(QAction* action);
    void refilled();
    void selectAgain(QString const& text);
    void fetchIcons();

    bool typed(QKeyEvent const& event);
    bool movedByKey(int key);
    bool choseByShortcut(QKeyEvent const& event);
    void press(int key, int times = 1);
    void applyFilter();
    void showTyped();
    void layOutAgain();

    struct PendingIcon {
        QAction* action;
        std::size_t entry;
    };

    std::shared_ptr<Menu> m_menu;
    MenuFilter m_filter;
    std::vector<QAction*> m_entryActions; ///< one an entry, in their order
    std::vector<PendingIcon> m_pendingIcons;
    QAction* m_typedLine = nullptr;
    QLabel* m_typedText = nullptr; ///< of that line, which owns it
    bool m_changesQuietly = false;
    bool m_isLayingOut = false;
    bool m_iconsScheduled = false;
    bool m_handlesKey = false;
    bool m_awaitsPaint = false; ///< as a whole, since it was shown
    bool m_awaitsUpdate = false; ///< the one that comes with being shown
    bool m_isOpenedByKey = false; ///< then its first entry is the selected one, however late it comes
};

} // namespace zv
