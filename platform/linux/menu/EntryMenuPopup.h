#pragma once

#include <QElapsedTimer>
#include <QPoint>
#include <QPointer>

#include <functional>
#include <memory>

class QAction;
class QKeyEvent;
class QMouseEvent;

namespace zv {

class MenuWindow;
struct MenuEntry;

/// The pointer and the keys that act on an entry of a menu window instead of choosing it: the
/// right button and the Menu key open the entry's own menu, a double click and Shift+Return open
/// a folder.
class EntryMenuPopup {
public:
    /// `entryOf` gives the entry that an action of the window shows; null for none.
    using EntryOf = std::function<MenuEntry const*(QAction const*)>;

    /// The window outlives it.
    EntryMenuPopup(MenuWindow& window, EntryOf entryOf)
        : m_window(window)
        , m_entryOf(std::move(entryOf))
    {
    }
    ~EntryMenuPopup();
    EntryMenuPopup(EntryMenuPopup const&) = delete;
    EntryMenuPopup& operator=(EntryMenuPopup const&) = delete;

    /// False for a press that is the toolkit's.
    bool takes(QMouseEvent const& event);
    /// False for a key that is not for it.
    bool takes(QKeyEvent const& event);

    [[nodiscard]] bool isOpen() const;
    void close();

private:
    enum class By { pointer, key };

    bool isSecondPress(QMouseEvent const& event, QAction const* action);
    void open(QAction const* action, QPoint at, By by);
    void closed();
    bool openFolder(QAction const* action, Qt::KeyboardModifiers held);

    MenuWindow& m_window;
    EntryOf m_entryOf;
    QAction const* m_pressed = nullptr; ///< for comparison alone
    QElapsedTimer m_sincePress;
    std::shared_ptr<MenuEntry const> m_shown; ///< keeps the open menu's objects
    QPointer<MenuWindow> m_popup;
};

} // namespace zv
