#include "platform/linux/qt/MenuWindow.h"

#include "app/menu/Menu.h"
#include "platform/linux/qt/MenuImages.h"
#include "platform/linux/qt/MenuStyle.h"
#include "platform/linux/qt/ShortcutText.h"

#include <QActionEvent>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QStyleOptionMenuItem>
#include <QTextDocument>
#include <QTimer>
#include <QWidgetAction>

#include <utility>

namespace zv {

namespace {

/// An action that keeps alive what choosing it needs.
class EntryAction : public QAction {
public:
    EntryAction(MenuEntry const& entry, QObject* parent)
        : QAction(parent)
        , target(entry.target)
        , represented(entry.representedObject)
        , keys(shortcutKeysOf(entry).text())
        , column(columnKeysOf(entry).text())
    {
    }
    std::shared_ptr<MenuActionTarget> const target;
    std::shared_ptr<void> const represented;
    QString const keys; ///< of its key equivalent, as the menu shows them
    QString const column; ///< what stands at the right of its title
};

/// A title in which "&" stands for itself.
QString actionText(MenuEntry const& entry)
{
    auto text = QString::fromStdString(entry.visibleTitle());
    return text.replace(u'&', QLatin1String("&&")).replace(u'\t', u' ').replace(u'\n', u' ');
}

/// A tool tip is always plain text, whatever a file's name looks like.
QString toolTipText(std::string const& toolTip)
{
    auto const text = QString::fromStdString(toolTip);
    return Qt::mightBeRichText(text) ? QLatin1String("<qt>") + text.toHtmlEscaped() : text;
}

QFont italicFont(QFont font)
{
    font.setItalic(true);
    return font;
}

bool isSelectable(QAction const* action) { return action->isVisible() && !action->isSeparator() && action->isEnabled(); }

constexpr qint64 iconSlice = 6; // milliseconds of fetching before the menu gets its turn again

} // namespace

/// While it lives, changes of the actions do not lay the menu out anew, which takes as long
/// as the menu is; once at the end is enough.
class MenuWindow::QuietChanges {
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
    m_entryActions.clear();
    m_pendingIcons.clear();
    m_typedLine = nullptr;
    m_filter.setMenu(nullptr);
    clear();
    qDeleteAll(findChildren<MenuWindow*>(Qt::FindDirectChildrenOnly));
    m_menu.reset();
}

void MenuWindow::mirror()
{
    QuietChanges const quiet(*this);
    auto const submenus = findChildren<MenuWindow*>(Qt::FindDirectChildrenOnly);
    clear();
    for (auto* submenu : submenus)
        submenu->deleteLater();
    m_entryActions.clear();
    m_pendingIcons.clear();
    m_typedLine = nullptr;
    QList<QAction*> actions;
    actions.reserve(static_cast<qsizetype>(m_menu->entries.size()));
    for (auto const& entry : m_menu->entries) {
        m_entryActions.push_back(actionFor(entry));
        actions.append(m_entryActions.back());
    }
    addActions(actions);
    m_filter.setMenu(m_menu.get());
}

QAction* MenuWindow::actionFor(MenuEntry const& entry)
{
    if (entry.type == MenuEntry::Type::separator) {
        auto* separator = new QAction(this);
        separator->setSeparator(true);
        return separator;
    }
    auto* action = entry.submenu ? submenuActionFor(entry) : new EntryAction(entry, this);
    dress(*action, entry);
    return action;
}

QAction* MenuWindow::submenuActionFor(MenuEntry const& entry)
{
    auto* submenu = new MenuWindow(this);
    submenu->setMenu(entry.submenu);
    // The entry's action keeps alive what the submenu's delegate needs.
    auto* action = new EntryAction(entry, this);
    action->setMenu(submenu);
    return action;
}

void MenuWindow::dress(QAction& action, MenuEntry const& entry)
{
    action.setText(actionText(entry));
    action.setEnabled(entry.enabled);
    if (!entry.toolTip.empty())
        action.setToolTip(toolTipText(entry.toolTip));
    else if (MenuStyle::isShortened(action.text(), fontMetrics()))
        action.setToolTip(toolTipText(entry.visibleTitle()));
    if (entry.attributedTitle && entry.attributedTitle->italic)
        action.setFont(italicFont(font()));
    if (entry.isMarked) {
        action.setCheckable(true);
        action.setChecked(true);
    }
    if (!entry.image)
        return;
    if (isMenuIconReady(entry.image)) {
        action.setIcon(menuIconOf(entry.image));
        return;
    }
    action.setIcon(blankMenuIcon());
    m_pendingIcons.push_back({ &action, m_entryActions.size() });
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
    if (entry && entry->target && onChosen)
        onChosen(entry->target, QGuiApplication::keyboardModifiers()); // of the click or key that chose it
}

void MenuWindow::refilled()
{
    auto const selected = activeAction() ? activeAction()->text() : QString();
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
    QMenu::actionEvent(event);
}

// Not part of the action's text, which assistive tools read out as the entry's name.
void MenuWindow::initStyleOption(QStyleOptionMenuItem* option, QAction const* action) const
{
    QMenu::initStyleOption(option, action);
    option->text = MenuStyle::shortenedTitle(option->text, option->fontMetrics);
    auto const* entry = dynamic_cast<EntryAction const*>(action);
    if (entry && !entry->column.isEmpty())
        option->text += u'\t' + entry->column;
}

void MenuWindow::paintEvent(QPaintEvent* event)
{
    QMenu::paintEvent(event);
    m_awaitsPaint = m_awaitsPaint && event->region() != QRegion(rect());
    if (m_pendingIcons.empty() || m_iconsScheduled)
        return;
    m_iconsScheduled = true;
    QTimer::singleShot(0, this, &MenuWindow::fetchIcons);
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
        auto const [action, entry] = m_pendingIcons[fetched++];
        action->setIcon(menuIconOf(m_menu->entries[entry].image));
        update(actionGeometry(action));
    }
    m_pendingIcons.erase(m_pendingIcons.begin(), m_pendingIcons.begin() + static_cast<std::ptrdiff_t>(fetched));
    m_changesQuietly = false;
}

void MenuWindow::keyPressEvent(QKeyEvent* event)
{
    if (choseByShortcut(*event) || typed(*event) || movedByKey(event->key()))
        return;
    QScopedValueRollback const handling(m_handlesKey, true);
    QMenu::keyPressEvent(event);
}

bool MenuWindow::typed(QKeyEvent const& event)
{
    bool const wasEmpty = m_filter.isEmpty();
    auto const text = event.text();
    if (event.key() == Qt::Key_Escape)
        m_filter.clear();
    else if (event.key() == Qt::Key_Backspace)
        m_filter.removeLast();
    else if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier) || text.isEmpty() || !text.at(0).isPrint())
        return false;
    else if (wasEmpty && text.at(0).isSpace())
        return false;
    else
        m_filter.append(text.toStdString());
    if (wasEmpty && m_filter.isEmpty())
        return false;
    applyFilter();
    return true;
}

bool MenuWindow::movedByKey(int key)
{
    int const page = std::max(1, height() / std::max(1, fontMetrics().height() * 2));
    switch (key) {
    case Qt::Key_Home:
        setActiveAction(nullptr);
        press(Qt::Key_Down);
        return true;
    case Qt::Key_End:
        setActiveAction(nullptr);
        press(Qt::Key_Up);
        return true;
    case Qt::Key_PageDown:
        press(Qt::Key_Down, page);
        return true;
    case Qt::Key_PageUp:
        press(Qt::Key_Up, page);
        return true;
    default:
        return false;
    }
}

/// As if the key were pressed that often, without going round at either end.
void MenuWindow::press(int key, int times)
{
    auto const all = actions();
    auto const* last = static_cast<QAction const*>(nullptr);
    for (auto const* action : all) {
        if (isSelectable(action) && (key == Qt::Key_Down || !last))
            last = action;
    }
    for (int i = 0; i < times && (times == 1 || activeAction() != last); ++i) {
        QKeyEvent step(QEvent::KeyPress, key, Qt::NoModifier);
        QMenu::keyPressEvent(&step);
    }
}

/// Key equivalents work while the menu is open, in it and in the groups below it that have
/// been built.
bool MenuWindow::choseByShortcut(QKeyEvent const& event)
{
    ShortcutKeys pressed;
    if (event.modifiers() & Qt::ControlModifier)
        pressed.modifiers.append(QStringLiteral("Ctrl"));
    if (event.modifiers() & Qt::AltModifier)
        pressed.modifiers.append(QStringLiteral("Alt"));
    if (event.modifiers() & Qt::ShiftModifier)
        pressed.modifiers.append(QStringLiteral("Shift"));
    if (event.modifiers() & Qt::MetaModifier)
        pressed.modifiers.append(QStringLiteral("Super"));
    auto const keyCode = event.keyCombination().key();
    bool const isFunctionKey = keyCode >= Qt::Key_F1 && keyCode <= Qt::Key_F15;
    if (!isFunctionKey && !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
        return false;
    pressed.key = QKeySequence(keyCode).toString(QKeySequence::PortableText);
    auto const keys = pressed.text();
    for (auto* action : actions()) {
        auto const* entry = dynamic_cast<EntryAction const*>(action);
        if (!entry || entry->keys != keys || !isSelectable(action) || action->menu())
            continue;
        auto* top = root();
        top->close();
        if (entry->target && top->onChosen)
            top->onChosen(entry->target, Qt::NoModifier);
        return true;
    }
    return false;
}

void MenuWindow::applyFilter()
{
    auto const visible = m_filter.visibleEntries();
    {
        QuietChanges const quiet(*this);
        for (std::size_t i = 0; i < visible.size(); ++i)
            m_entryActions[i]->setVisible(visible[i]);
        showTyped();
    }
    setActiveAction(nullptr);
    layOutAgain();
    if (!m_filter.isEmpty())
        press(Qt::Key_Down);
}

/// A first line that says what was typed. The menu keeps its width, so that it does not
/// jump about under the eyes.
void MenuWindow::showTyped()
{
    if (!m_typedLine) {
        auto* line = new QWidgetAction(this);
        m_typedText = new QLabel(this);
        m_typedText->setTextFormat(Qt::PlainText);
        m_typedText->setContentsMargins(28, 3, 12, 3);
        line->setDefaultWidget(m_typedText);
        line->setEnabled(false);
        auto palette = m_typedText->palette();
        palette.setColor(QPalette::Disabled, QPalette::WindowText, palette.color(QPalette::Active, QPalette::Highlight));
        m_typedText->setPalette(palette);
        m_typedLine = line;
        insertAction(actions().value(0), m_typedLine);
        setMinimumWidth(width());
    }
    m_typedLine->setVisible(!m_filter.isEmpty());
    m_typedLine->setText(QString::fromStdString(m_filter.text()));
    m_typedText->setText(m_typedLine->text());
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
