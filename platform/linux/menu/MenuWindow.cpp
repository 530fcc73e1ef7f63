#include "platform/linux/menu/MenuWindow.h"

#include "app/menu/Menu.h"
#include "platform/linux/icons/MenuImages.h"
#include "platform/linux/menu/EntryAction.h"
#include "platform/linux/menu/MenuStyle.h"

#include <QActionEvent>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOptionMenuItem>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace zv {

namespace {

constexpr qint64 iconSlice = 6; // milliseconds of fetching before the menu gets its turn again
constexpr std::size_t mostKept = 500; // entries of a closed menu: far more than people choose from, little memory

} // namespace

MenuWindow::MenuWindow(QWidget* parent)
    : QMenu(parent)
{
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &MenuWindow::willOpen);
    connect(this, &QMenu::aboutToHide, this, &MenuWindow::didHide);
    if (qobject_cast<MenuWindow*>(parent))
        return;
    connect(this, &QMenu::triggered, this, &MenuWindow::chosen);
    // Nobody sees a menu's window icon. The program's, in all its sizes, would be sent to the
    // display for each submenu that opens; a submenu takes over that of its parent.
    setWindowIcon(blankMenuIcon());
}

MenuWindow::~MenuWindow()
{
    if (m_menu)
        m_menu->onRefilled = nullptr;
}

void MenuWindow::setMenu(std::shared_ptr<Menu> menu) { m_menu = std::move(menu); }

void MenuWindow::forget()
{
    if (isVisible())
        return;
    QuietChanges const quiet(*this);
    m_pendingIcons.clear();
    dropTypedLine();
    m_filter.setMenu(nullptr);
    m_menu.reset();
    dropEntryActions(m_entryActions.size() > mostKept ? 0 : m_entryActions.size());
    for (auto* action : m_entryActions) {
        action->release();
        forgetSubmenu(*action);
    }
    (void)sizeHint(); // lays out what has changed
}

/// One that was opened has entries and a window of its own; a fresh one looks the same to the
/// layout.
void MenuWindow::forgetSubmenu(EntryAction& action)
{
    auto* submenu = qobject_cast<MenuWindow*>(action.menu());
    if (!submenu)
        return;
    QScopedValueRollback const quiet(m_changesQuietly, true);
    if (submenu->internalWinId() != 0)
        takeSubmenu(action);
    giveSubmenu(action, nullptr);
}

void MenuWindow::mirror()
{
    QuietChanges const quiet(*this);
    dropTypedLine();
    m_pendingIcons.clear();
    auto const& entries = m_menu->entries;
    dropEntryActions(std::min(entries.size(), m_entryActions.size()));
    addEntryActions(entries.size() - m_entryActions.size());
    for (std::size_t i = 0; i < entries.size(); ++i)
        show(*m_entryActions[i], entries[i]);
    m_filter.setMenu(m_menu.get());
}

void MenuWindow::show(EntryAction& action, MenuEntry const& entry)
{
    action.show(entry, fontMetrics());
    auto* submenu = qobject_cast<MenuWindow*>(action.menu());
    if (submenu && (!entry.submenu || submenu->isVisible()))
        takeSubmenu(action);
    if (entry.submenu)
        giveSubmenu(action, entry.submenu);
    if (action.awaitsIcon())
        m_pendingIcons.push_back(&action);
}

void MenuWindow::giveSubmenu(EntryAction& action, std::shared_ptr<Menu> const& menu)
{
    auto* submenu = qobject_cast<MenuWindow*>(action.menu());
    if (!submenu) {
        submenu = new MenuWindow(this);
        action.setMenu(submenu);
    }
    submenu->setMenu(menu);
}

void MenuWindow::takeSubmenu(EntryAction& action)
{
    action.menu()->deleteLater();
    action.setMenu(nullptr);
}

void MenuWindow::addEntryActions(std::size_t count)
{
    QList<QAction*> added;
    added.reserve(static_cast<qsizetype>(count));
    for (std::size_t i = 0; i < count; ++i) {
        m_entryActions.push_back(new EntryAction(this));
        added.append(m_entryActions.back());
    }
    addActions(added);
}

void MenuWindow::dropEntryActions(std::size_t from)
{
    for (auto i = from; i < m_entryActions.size(); ++i) {
        if (m_entryActions[i]->menu())
            takeSubmenu(*m_entryActions[i]);
        delete m_entryActions[i];
    }
    m_entryActions.resize(from);
}

MenuWindow* MenuWindow::root()
{
    auto* window = this;
    while (auto* parent = qobject_cast<MenuWindow*>(window->parentWidget()))
        window = parent;
    return window;
}

void MenuWindow::willOpen()
{
    if (m_isLayingOut || !m_menu)
        return;
    auto const* parent = qobject_cast<MenuWindow const*>(parentWidget());
    m_isOpenedByKey = parent && parent->m_handlesKey;
    m_filter.clear();
    setMinimumWidth(0);
    m_menu->needsUpdate();
    mirror();
    m_menu->onRefilled = [this] { refilled(); };
}

void MenuWindow::didHide()
{
    if (!m_menu)
        return;
    m_menu->onRefilled = nullptr;
    m_pendingIcons.clear();
    m_menu->didClose();
    if (onClosed)
        onClosed();
}

void MenuWindow::chosen(QAction* action)
{
    auto const* entry = dynamic_cast<EntryAction const*>(action);
    if (entry && entry->target() && onChosen)
        onChosen(entry->target(), QGuiApplication::keyboardModifiers()); // of the click or key that chose it
}

void MenuWindow::refilled()
{
    auto const selected = activeAction() ? activeAction()->text() : QString();
    setActiveAction(nullptr);
    mirror();
    if (!m_filter.isEmpty()) {
        applyFilter();
        return;
    }
    layOutAgain();
    if (!selected.isEmpty())
        selectAgain(selected);
    else if (m_isOpenedByKey)
        press(Qt::Key_Down);
}

/// By steps, as an entry that is made the active one opens its submenu.
void MenuWindow::selectAgain(QString const& text)
{
    auto const all = actions();
    if (std::none_of(all.begin(), all.end(), [&](QAction const* action) { return isSelectable(action) && action->text() == text; }))
        return;
    do
        press(Qt::Key_Down);
    while (activeAction()->text() != text);
}

/// Hidden, as what is closed gives its native window away, and making one anew takes longer
/// than all the rest of an opening.
void MenuWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    hide();
}

bool MenuWindow::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: // some keys would reach the menu as shortcuts of the program; all of them are the menu's
        event->accept();
        return true;
    case QEvent::Show:
        m_awaitsPaint = m_awaitsUpdate = true;
        windowHandle()->installEventFilter(this);
        break;
    case QEvent::FontChange: // what was cut short in the old font may fit now
        if (!isVisible())
            dropEntryActions(0);
        [[fallthrough]];
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
        m_picture = {};
        break;
    case QEvent::UpdateLater: // the toolkit asks for one whenever it shows a window; most are painted by then
        if (std::exchange(m_awaitsUpdate, false) && !m_awaitsPaint)
            return true;
        break;
    default:
        break;
    }
    return QMenu::event(event);
}

void MenuWindow::actionEvent(QActionEvent* event)
{
    if (m_changesQuietly && event->type() == QEvent::ActionChanged)
        return;
    m_picture = {};
    QMenu::actionEvent(event);
}

// Not part of the action's text, which assistive tools read out as the entry's name.
void MenuWindow::initStyleOption(QStyleOptionMenuItem* option, QAction const* action) const
{
    QMenu::initStyleOption(option, action);
    option->text = MenuStyle::shortenedTitle(option->text, option->fontMetrics);
    auto const* entry = dynamic_cast<EntryAction const*>(action);
    auto const column = entry ? entry->column() : QString();
    if (!column.isEmpty())
        option->text += u'\t' + column;
}

void MenuWindow::paintEvent(QPaintEvent* event)
{
    bool const isFirst = m_awaitsPaint && event->region() == QRegion(rect()) && !m_isPosing;
    if (isFirst && showsPicture())
        QPainter(this).drawPixmap(0, 0, m_picture);
    else
        QMenu::paintEvent(event);
    if (isFirst)
        didPaintFirst();
    if (m_pendingIcons.empty() || m_iconsScheduled)
        return;
    m_iconsScheduled = true;
    QTimer::singleShot(0, this, &MenuWindow::fetchIcons);
}

void MenuWindow::didPaintFirst()
{
    m_awaitsPaint = false;
    m_isJustPainted = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isJustPainted = false;
            takePicture();
        },
        Qt::QueuedConnection);
}

/// Most menus look the next time as they do now, and showing a picture of that takes a tenth
/// of the time that drawing takes.
void MenuWindow::takePicture()
{
    bool const isPlain = isVisible() && !activeAction() && m_pendingIcons.empty() && !m_typedLine;
    if (!isPlain || showsPicture() || qobject_cast<MenuWindow*>(parentWidget()))
        return;
    QScopedValueRollback const posing(m_isPosing, true);
    m_picture = grab();
}

/// Whether the picture is what would be drawn.
bool MenuWindow::showsPicture() const
{
    auto const scale = devicePixelRatioF();
    return !m_picture.isNull() && !activeAction() && m_picture.devicePixelRatio() == scale && m_picture.size() == (QSizeF(size()) * scale).toSize();
}

/// A window that is mapped is told twice to show itself. What was asked for before the whole
/// of it was painted is done by then, and sending it once more takes as long as painting it.
bool MenuWindow::eventFilter(QObject* watched, QEvent* event)
{
    bool const isAsked = watched == windowHandle() && event->type() == QEvent::Paint;
    return (isAsked && m_isJustPainted) || QMenu::eventFilter(watched, event);
}

// The picture takes the place of a blank one of its size, so the layout stands.
void MenuWindow::fetchIcons()
{
    m_iconsScheduled = false;
    m_changesQuietly = true;
    QElapsedTimer timer;
    timer.start();
    std::size_t fetched = 0;
    while (fetched < m_pendingIcons.size() && timer.elapsed() < iconSlice) {
        auto* const action = m_pendingIcons[fetched++];
        action->fetchIcon();
        update(actionGeometry(action));
    }
    m_pendingIcons.erase(m_pendingIcons.begin(), m_pendingIcons.begin() + static_cast<std::ptrdiff_t>(fetched));
    m_changesQuietly = false;
}

/// Popping up where it is already recomputes the size, the place and the scrolling.
void MenuWindow::layOutAgain()
{
    m_isLayingOut = true;
    popup(pos());
    m_isLayingOut = false;
    update();
}

} // namespace zv
