#include "platform/linux/menu/MenuTyping.h"

#include "platform/linux/menu/EntryAction.h"
#include "platform/linux/menu/MenuMirror.h"
#include "platform/linux/menu/MenuWindow.h"
#include "platform/linux/menu/QuietChanges.h"
#include "platform/linux/menu/ShortcutText.h"

#include <QKeyEvent>
#include <QLabel>
#include <QWidgetAction>

#include <algorithm>
#include <utility>

namespace zv {

namespace {

constexpr Qt::KeyboardModifiers commandModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool isSelectable(QAction const* action) { return action->isVisible() && !action->isSeparator() && action->isEnabled(); }

/// The event's keys in the notation of entries; nothing for keys that type text.
QString shortcutOf(QKeyEvent const& event)
{
    auto const keyCode = event.keyCombination().key();
    bool const isFunctionKey = keyCode >= Qt::Key_F1 && keyCode <= Qt::Key_F15;
    if (!isFunctionKey && !(event.modifiers() & commandModifiers))
        return {};
    ShortcutKeys pressed;
    std::pair<Qt::KeyboardModifier, QString> const names[] = { { Qt::ControlModifier, QStringLiteral("Ctrl") }, { Qt::AltModifier, QStringLiteral("Alt") },
        { Qt::ShiftModifier, QStringLiteral("Shift") }, { Qt::MetaModifier, QStringLiteral("Super") } };
    for (auto const& [modifier, name] : names) {
        if (event.modifiers() & modifier)
            pressed.modifiers.append(name);
    }
    pressed.key = QKeySequence(keyCode).toString(QKeySequence::PortableText);
    return pressed.text();
}

} // namespace

MenuTyping::MenuTyping(MenuWindow& window, MenuMirror const& mirror)
    : m_window(window)
    , m_mirror(mirror)
{
}

void MenuTyping::begin()
{
    m_filter.clear();
    m_window.setMinimumWidth(0);
}

void MenuTyping::setMenu(Menu const* menu) { m_filter.setMenu(menu); }

bool MenuTyping::takes(QKeyEvent const& event) { return choseByShortcut(event) || typed(event) || moved(event.key()); }

bool MenuTyping::typed(QKeyEvent const& event)
{
    bool const wasFiltering = isFiltering();
    if (!edited(event) || (!wasFiltering && !isFiltering()))
        return false;
    filter();
    return true;
}

/// Edits the typed text; false if the key is not for editing.
bool MenuTyping::edited(QKeyEvent const& event)
{
    auto const text = event.text();
    if (event.key() == Qt::Key_Escape)
        m_filter.clear();
    else if (event.key() == Qt::Key_Backspace)
        m_filter.removeLast();
    else if (event.modifiers() & commandModifiers || text.isEmpty() || !text.at(0).isPrint())
        return false;
    else if (!isFiltering() && text.at(0).isSpace())
        return false;
    else
        m_filter.append(text.toStdString());
    return true;
}

bool MenuTyping::moved(int key)
{
    int const page = std::max(1, m_window.height() / std::max(1, m_window.fontMetrics().height() * 2));
    switch (key) {
    case Qt::Key_Home:
        m_window.setActiveAction(nullptr);
        press(Qt::Key_Down);
        return true;
    case Qt::Key_End:
        m_window.setActiveAction(nullptr);
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

/// Acts like that many presses of the key, without wrapping around.
void MenuTyping::press(int key, int times)
{
    auto const all = m_window.actions();
    auto const* last = static_cast<QAction const*>(nullptr);
    for (auto const* action : all) {
        if (isSelectable(action) && (key == Qt::Key_Down || !last))
            last = action;
    }
    for (int i = 0; i < times && (times == 1 || m_window.activeAction() != last); ++i)
        m_window.step(key);
}

void MenuTyping::selectFirst() { press(Qt::Key_Down); }

/// Selects step by step, as making an entry the active one directly would open its submenu.
void MenuTyping::select(QString const& text)
{
    auto const all = m_window.actions();
    if (std::none_of(all.begin(), all.end(), [&](QAction const* action) { return isSelectable(action) && action->text() == text; }))
        return;
    do
        press(Qt::Key_Down);
    while (m_window.activeAction()->text() != text);
}

/// Chooses the entry with the key equivalent, in this menu or in the groups below it that have
/// been built.
bool MenuTyping::choseByShortcut(QKeyEvent const& event)
{
    auto const keys = shortcutOf(event);
    if (keys.isEmpty())
        return false;
    auto const& all = m_mirror.actions();
    auto const found
        = std::find_if(all.begin(), all.end(), [&](auto const* action) { return action->keys() == keys && isSelectable(action) && !action->menu(); });
    if (found == all.end())
        return false;
    m_window.closeAllAndChoose((*found)->target());
    return true;
}

void MenuTyping::filter()
{
    auto const visible = m_filter.visibleEntries();
    {
        QuietChanges const quiet(m_window);
        for (std::size_t i = 0; i < visible.size(); ++i)
            m_mirror.actions()[i]->setVisible(visible[i]);
        showLine();
    }
    m_window.setActiveAction(nullptr);
    m_window.layOutAgain();
    if (isFiltering())
        selectFirst();
}

void MenuTyping::showLine()
{
    if (!m_line)
        addLine();
    m_line->setVisible(isFiltering());
    m_line->setText(QString::fromStdString(m_filter.text()));
    m_lineText->setText(m_line->text());
}

/// Adds a first line with the typed text. The menu keeps its width, so that it does not jump.
void MenuTyping::addLine()
{
    auto* line = new QWidgetAction(&m_window);
    m_lineText = new QLabel(&m_window);
    m_lineText->setTextFormat(Qt::PlainText);
    m_lineText->setContentsMargins(28, 3, 12, 3);
    line->setDefaultWidget(m_lineText);
    line->setEnabled(false);
    auto palette = m_lineText->palette();
    palette.setColor(QPalette::Disabled, QPalette::WindowText, palette.color(QPalette::Active, QPalette::Highlight));
    m_lineText->setPalette(palette);
    m_line = line;
    m_window.insertAction(m_window.actions().value(0), m_line);
    m_window.setMinimumWidth(m_window.width());
}

void MenuTyping::dropLine()
{
    delete std::exchange(m_line, nullptr);
    m_lineText = nullptr;
}

} // namespace zv
