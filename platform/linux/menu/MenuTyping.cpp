#include "platform/linux/menu/MenuTyping.h"

#include "platform/linux/menu/EntryAccessible.h"
#include "platform/linux/menu/EntryAction.h"
#include "platform/linux/menu/FoundEntries.h"
#include "platform/linux/menu/MenuMirror.h"
#include "platform/linux/menu/MenuWindow.h"
#include "platform/linux/menu/QuietChanges.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QWidgetAction>

#include <algorithm>
#include <utility>

namespace zv {

namespace {

constexpr Qt::KeyboardModifiers commandModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool isSelectable(QAction const* action) { return action->isVisible() && !action->isSeparator() && action->isEnabled(); }

} // namespace

MenuTyping::MenuTyping(MenuWindow& window, MenuMirror const& mirror)
    : m_window(window)
    , m_mirror(mirror)
{
}

MenuTyping::~MenuTyping() = default;

void MenuTyping::begin()
{
    end();
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
    case Qt::Key_End:
        m_window.step(key);
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

void MenuTyping::select(QString const& text)
{
    auto const all = m_window.actions();
    auto const found = std::find_if(all.begin(), all.end(), [&](QAction const* action) { return isSelectable(action) && action->text() == text; });
    if (found != all.end())
        select(**found);
}

/// Steps from the nearer end, as making an entry the active one directly would open its submenu.
void MenuTyping::select(QAction const& wanted)
{
    auto const all = m_window.actions();
    bool const isNearEnd = std::find(all.begin(), all.end(), &wanted) - all.begin() > all.size() / 2;
    m_window.step(isNearEnd ? Qt::Key_End : Qt::Key_Home);
    for (qsizetype i = 0; i < all.size() && m_window.activeAction() != &wanted; ++i)
        m_window.step(isNearEnd ? Qt::Key_Up : Qt::Key_Down);
}

void MenuTyping::selectInSight()
{
    auto const sight = m_window.sight();
    for (auto left = m_window.actions().size(); left > 0; --left) {
        auto* active = m_window.activeAction();
        int const y = active ? m_window.actionGeometry(active).center().y() : sight.top() - 1;
        if (sight.top() <= y && y <= sight.bottom())
            return;
        m_window.step(y < sight.top() ? Qt::Key_Down : Qt::Key_Up);
    }
}

/// What types text goes on typing once text was typed. A key that was held before chooses nothing.
bool MenuTyping::choseByShortcut(QKeyEvent const& event)
{
    bool const typesOn = isFiltering() && !(event.modifiers() & commandModifiers) && !event.text().isEmpty();
    return !typesOn && !event.isAutoRepeat() && m_window.choseByShortcut(event);
}

void MenuTyping::filter()
{
    QPointer<QAction const> const selected = m_window.activeAction();
    auto const visible = m_filter.visibleEntries();
    m_matches = std::count(visible.begin(), visible.end(), true);
    if (!m_found)
        m_found = std::make_unique<FoundEntries>(m_window, [this] { answered(); });
    m_found->find(m_filter.text(), static_cast<std::size_t>(m_matches));
    {
        QuietChanges const quiet(m_window);
        for (std::size_t i = 0; i < visible.size(); ++i)
            m_mirror.actions()[i]->setVisible(visible[i]);
        m_found->show();
        showLine();
    }
    m_window.setActiveAction(nullptr);
    m_window.layOutAgain();
    if (isFiltering())
        selectFirst();
    else if (selected)
        select(*selected);
    if (!m_found->isSearching())
        announceText(*m_line);
}

/// Shows what was found; what is at hand stays in its place.
void MenuTyping::answered()
{
    if (!isFiltering() || !m_line)
        return;
    auto* const selected = m_window.activeAction();
    if (!isAtHand()) {
        bool const isFirst = !selected || foundEntryOf(selected);
        {
            QuietChanges const quiet(m_window);
            m_found->show();
            showLine();
        }
        m_window.setActiveAction(nullptr);
        m_window.layOutAgain();
        isFirst ? selectFirst() : select(*selected);
    }
    if (!m_found->isSearching())
        announceText(*m_line);
}

/// Whether the hand has gone on from the first entry to one that was found, or to the selected entry's submenu.
bool MenuTyping::isAtHand() const
{
    auto const* selected = m_window.activeAction();
    if (!selected)
        return false;
    auto const all = m_window.actions();
    auto const* first = *std::find_if(all.begin(), all.end(), isSelectable);
    bool const isOpen = m_window.showsEntryMenu() || (selected->menu() && selected->menu()->isVisible());
    return isOpen || (selected != first && foundEntryOf(selected));
}

MenuEntry const* MenuTyping::foundEntryOf(QAction const* action) const { return m_found ? m_found->entryOf(action) : nullptr; }

void MenuTyping::fetchIconsSoon()
{
    if (m_found)
        m_found->fetchIconsSoon();
}

/// Ends the search, but leaves its entries, one of which may have been chosen.
void MenuTyping::end()
{
    if (m_found)
        m_found->end();
}

std::ptrdiff_t MenuTyping::matchCount() const { return m_matches + static_cast<std::ptrdiff_t>(m_found->count()); }

void MenuTyping::showLine()
{
    if (!m_line)
        addLine();
    auto const instead = m_found->isSearching() ? MenuSearch::searching : MenuFilter::noMatches;
    m_line->setVisible(isFiltering());
    m_line->setText(QString::fromStdString(m_filter.text()));
    m_lineText->setText(m_line->text());
    m_line->setStatusTip(QString::fromStdString(m_filter.announcement(matchCount(), instead)));
    m_noMatches->setText(QString::fromStdString(zv::tr(instead)));
    m_noMatches->setVisible(isFiltering() && matchCount() == 0);
}

/// Adds a first line with the typed text. The menu keeps its width, so that it does not jump.
void MenuTyping::addLine()
{
    auto* line = new QWidgetAction(&m_window);
    m_lineText = new QLabel(&m_window);
    m_lineText->setTextFormat(Qt::PlainText);
    bool const isRightToLeft = m_window.isRightToLeft(); // like the titles, whichever way the text reads
    m_lineText->setContentsMargins(isRightToLeft ? QMargins(12, 3, 28, 3) : QMargins(28, 3, 12, 3));
    m_lineText->setAlignment((isRightToLeft ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute | Qt::AlignVCenter);
    line->setDefaultWidget(m_lineText);
    line->setEnabled(false);
    auto palette = m_lineText->palette();
    palette.setColor(QPalette::Disabled, QPalette::WindowText, palette.color(QPalette::Active, QPalette::Highlight));
    m_lineText->setPalette(palette);
    m_line = line;
    m_noMatches = new QAction(&m_window);
    m_noMatches->setEnabled(false);
    m_window.insertActions(m_window.actions().value(0), { m_line, m_noMatches });
    m_window.setMinimumWidth(m_window.width());
}

void MenuTyping::dropLine()
{
    if (m_found)
        m_found->drop();
    delete std::exchange(m_line, nullptr);
    delete std::exchange(m_noMatches, nullptr);
    m_lineText = nullptr;
}

} // namespace zv
