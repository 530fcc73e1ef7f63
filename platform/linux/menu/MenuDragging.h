#pragma once

#include "base/Url.h"

#include <QBasicTimer>
#include <QPoint>
#include <QPointer>

#include <functional>
#include <vector>

class QAction;
class QDragMoveEvent;
class QDropEvent;
class QEvent;
class QMimeData;
class QMouseEvent;

namespace zv {

class MenuWindow;
struct MenuEntry;

/// The local files of what is dragged or pasted.
[[nodiscard]] std::vector<Url> filesOf(QMimeData const& data);

/// Files that are dragged out of a menu window, and dropped on its folders.
class MenuDragging {
public:
    using EntryOf = std::function<MenuEntry const*(QAction const*)>;

    /// The window outlives it.
    MenuDragging(MenuWindow& window, EntryOf entryOf)
        : m_window(window)
        , m_entryOf(std::move(entryOf))
    {
    }

    /// False for an event that is the toolkit's.
    bool takes(QEvent& event);

private:
    [[nodiscard]] bool starts(QMouseEvent const& event) const;
    void pressed(QMouseEvent const& event);
    void drag();
    void moved(QDragMoveEvent& event);
    void dropped(QDropEvent& event);
    [[nodiscard]] MenuEntry const* folderAt(QPoint at) const;
    void springOpen(QAction* action);

    MenuWindow& m_window;
    EntryOf m_entryOf;
    QPoint m_pressedAt;
    QPointer<QAction> m_pressed; ///< null unless the left button is held on an entry
    QPointer<QAction> m_springing; ///< the folder over which files are held
};

} // namespace zv
