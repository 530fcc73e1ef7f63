#pragma once

#include "app/menubar/MenuFilter.h"

#include <QMenu>
#include <QPixmap>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QLabel;

namespace zv {

class Menu;
class EntryAction;
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
    /// Lets go of the menu and makes ready for the next time, in which most menus look the
    /// same: the window stays, and so does what its entries look like.
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
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, QAction const* action) const override;

private:
    /// While it lives, changes of the actions do not lay the menu out anew, which takes as long
    /// as the menu is; once at the end is enough.
    class QuietChanges {
    public:
        explicit QuietChanges(MenuWindow& window)
            : m_window(window)
            , m_wasVisible(window.isVisible())
        {
            m_window.setAttribute(Qt::WA_WState_Visible, false);
        }
        ~QuietChanges() { m_window.setAttribute(Qt::WA_WState_Visible, m_wasVisible); }
        QuietChanges(QuietChanges const&) = delete;
        QuietChanges& operator=(QuietChanges const&) = delete;

    private:
        MenuWindow& m_window;
        bool m_wasVisible;
    };

    [[nodiscard]] static bool isSelectable(QAction const* action) { return action->isVisible() && !action->isSeparator() && action->isEnabled(); }
    void show(EntryAction& action, MenuEntry const& entry);
    void giveSubmenu(EntryAction& action, std::shared_ptr<Menu> const& menu);
    void takeSubmenu(EntryAction& action);
    void forgetSubmenu(EntryAction& action);
    void addEntryActions(std::size_t count);
    void dropEntryActions(std::size_t from);
    [[nodiscard]] MenuWindow* root();

    void willOpen();
    void didHide();
    void chosen(QAction* action);
    void refilled();
    void selectAgain(QString const& text);
    void fetchIcons();
    void didPaintFirst();
    void takePicture();
    [[nodiscard]] bool showsPicture() const;

    bool typed(QKeyEvent const& event);
    bool movedByKey(int key);
    bool choseByShortcut(QKeyEvent const& event);
    void press(int key, int times = 1);
    void applyFilter();
    void showTyped();
    void dropTypedLine();
    void layOutAgain();

    std::shared_ptr<Menu> m_menu;
    MenuFilter m_filter;
    std::vector<EntryAction*> m_entryActions; ///< one an entry, in their order
    std::vector<EntryAction*> m_pendingIcons;
    QAction* m_typedLine = nullptr;
    QLabel* m_typedText = nullptr; ///< of that line, which owns it
    QPixmap m_picture; ///< of the window as it opens, with nothing selected; null when it looks otherwise by now
    bool m_changesQuietly = false;
    bool m_isLayingOut = false;
    bool m_iconsScheduled = false;
    bool m_handlesKey = false;
    bool m_awaitsPaint = false; ///< as a whole, since it was shown
    bool m_isPosing = false; ///< for the picture
    bool m_isJustPainted = false; ///< as a whole, in this turn of the loop
    bool m_awaitsUpdate = false; ///< the one that comes with being shown
    bool m_isOpenedByKey = false; ///< then its first entry is the selected one, however late it comes
};

} // namespace zv
