#include "platform/linux/menu/MenuDragging.h"

#include "app/menu/EntryMenus.h"
#include "platform/linux/menu/MenuPlacer.h"
#include "platform/linux/menu/MenuWindow.h"

#include <QAction>
#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>
#include <QUrl>

#include <utility>

namespace zv {

namespace {

constexpr int springDelay = 400; // milliseconds

/// The usual modifiers of file managers: none moves, Ctrl copies, both or Alt link.
FileTransfer transferOf(Qt::KeyboardModifiers held)
{
    bool const isLink = held.testFlag(Qt::AltModifier) || (held.testFlag(Qt::ControlModifier) && held.testFlag(Qt::ShiftModifier));
    if (isLink)
        return FileTransfer::link;
    return held.testFlag(Qt::ControlModifier) ? FileTransfer::copy : FileTransfer::move;
}

Qt::DropAction actionOf(FileTransfer how)
{
    if (how == FileTransfer::link)
        return Qt::LinkAction;
    return how == FileTransfer::copy ? Qt::CopyAction : Qt::MoveAction;
}

} // namespace

std::vector<Url> filesOf(QMimeData const& data)
{
    std::vector<Url> files;
    for (auto const& url : data.urls()) {
        if (url.isLocalFile())
            files.push_back(Url::fromPath(QFile::encodeName(url.toLocalFile()).toStdString()));
    }
    return files;
}

bool MenuDragging::takes(QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        pressed(static_cast<QMouseEvent const&>(event));
        return false;
    case QEvent::MouseButtonRelease:
        m_pressed = nullptr;
        return false;
    case QEvent::MouseMove:
        return starts(static_cast<QMouseEvent const&>(event)) && (drag(), true);
    case QEvent::DragEnter: // wherever that is: without it no move would be told
        event.setAccepted(static_cast<QDragEnterEvent&>(event).mimeData()->hasUrls());
        return true;
    case QEvent::DragMove:
        moved(static_cast<QDragMoveEvent&>(event));
        return true;
    case QEvent::DragLeave:
        m_springing = nullptr;
        return true;
    case QEvent::Drop:
        dropped(static_cast<QDropEvent&>(event));
        return true;
    default:
        return false;
    }
}

void MenuDragging::pressed(QMouseEvent const& event)
{
    m_pressedAt = event.position().toPoint();
    m_pressed = event.button() == Qt::LeftButton ? m_window.actionAt(m_pressedAt) : nullptr;
}

bool MenuDragging::starts(QMouseEvent const& event) const
{
    bool const isFar = (event.position().toPoint() - m_pressedAt).manhattanLength() >= QApplication::startDragDistance();
    return m_pressed && event.buttons() == Qt::LeftButton && isFar;
}

/// Returns when the button is released. The receiver decides by its own modifiers what becomes of the file.
void MenuDragging::drag()
{
    auto* const action = m_pressed.data();
    m_pressed = nullptr;
    auto const* entry = m_entryOf(action);
    auto const file = entry && entry->subject.menus ? entry->subject.menus->fileOf(entry->subject) : std::nullopt;
    if (!file)
        return;
    auto* data = new QMimeData;
    data->setUrls({ QUrl(QString::fromStdString(file->toString())) });
    auto* dragged = new QDrag(&m_window);
    dragged->setMimeData(data);
    dragged->setPixmap(action->icon().pixmap(32));
    QPointer<MenuWindow> const window(&m_window);
    auto& placer = m_window.usedPlacer();
    placer.dragBegins();
    auto const done = dragged->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::CopyAction);
    placer.dragEnds();
    if (window && done != Qt::IgnoreAction)
        window->topMenu().close();
}

/// Accepts files over a folder, which opens after a moment.
void MenuDragging::moved(QDragMoveEvent& event)
{
    auto* action = m_window.actionAt(event.position().toPoint());
    springOpen(action && action->menu() ? action : nullptr);
    event.setDropAction(actionOf(transferOf(event.modifiers())));
    event.setAccepted(event.mimeData()->hasUrls() && folderAt(event.position().toPoint()));
}

void MenuDragging::springOpen(QAction* action)
{
    if (action == m_springing)
        return;
    m_springing = action;
    QTimer::singleShot(springDelay, &m_window, [this, action] {
        if (action && m_springing == action)
            m_window.setActiveAction(action);
    });
}

void MenuDragging::dropped(QDropEvent& event)
{
    m_springing = nullptr;
    auto const* entry = folderAt(event.position().toPoint());
    auto files = filesOf(*event.mimeData());
    if (!entry || files.empty())
        return event.ignore();
    auto const how = transferOf(event.modifiers());
    event.setDropAction(actionOf(how));
    event.accept();
    auto put = [menus = entry->subject.menus, folder = *entry->subject.menus->folderOf(entry->subject), files = std::move(files), how] {
        menus->drop(files, folder, how);
    };
    m_window.closeAllAndChoose(std::make_shared<MenuActionTarget>(std::move(put)));
}

/// The entry of a folder at the place; null without one.
MenuEntry const* MenuDragging::folderAt(QPoint at) const
{
    auto const* entry = m_entryOf(m_window.actionAt(at));
    return entry && entry->subject.menus && entry->subject.menus->folderOf(entry->subject) ? entry : nullptr;
}

} // namespace zv
