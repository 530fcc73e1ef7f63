#include "platform/linux/menu/MenuMirror.h"

#include "app/menu/Menu.h"
#include "platform/linux/menu/EntryAction.h"
#include "platform/linux/menu/MenuWindow.h"

#include <QElapsedTimer>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

namespace zv {

namespace {

constexpr qint64 iconSlice = 6; // milliseconds of fetching before the event loop gets its turn
constexpr std::size_t mostKept = 500; // entries of a closed menu: more than people choose from, little memory

MenuWindow* submenuOf(EntryAction const& action) { return qobject_cast<MenuWindow*>(action.menu()); }

} // namespace

MenuMirror::MenuMirror(MenuWindow& window)
    : m_window(window)
{
}

void MenuMirror::show(Menu const& menu)
{
    auto const& entries = menu.entries;
    m_awaitingIcons.clear();
    dropFrom(std::min(entries.size(), m_actions.size()));
    for (std::size_t i = 0; i < m_actions.size(); ++i)
        show(*m_actions[i], entries[i]);
    add(std::span(entries).subspan(m_actions.size()));
}

void MenuMirror::show(EntryAction& action, MenuEntry const& entry)
{
    action.show(entry, m_window.fontMetrics());
    auto const* submenu = submenuOf(action);
    if (submenu && (!entry.submenu || submenu->isVisible()))
        takeSubmenu(action);
    if (entry.submenu)
        giveSubmenu(action, entry.submenu);
    if (action.awaitsIcon())
        m_awaitingIcons.push_back(&action);
}

void MenuMirror::forget()
{
    m_awaitingIcons.clear();
    if (m_actions.size() > mostKept)
        dropAll();
    for (auto* action : m_actions) {
        action->release();
        renewSubmenu(*action);
    }
}

/// Adds the actions once they are complete: each change of one in a window is told to the window.
void MenuMirror::add(std::span<MenuEntry const> entries)
{
    QList<QAction*> added;
    added.reserve(static_cast<qsizetype>(entries.size()));
    for (auto const& entry : entries) {
        m_actions.push_back(new EntryAction(&m_window));
        show(*m_actions.back(), entry);
        added.append(m_actions.back());
    }
    m_window.addActions(added);
}

void MenuMirror::dropAll() { dropFrom(0); }

void MenuMirror::dropFrom(std::size_t index)
{
    for (auto i = index; i < m_actions.size(); ++i) {
        if (m_actions[i]->menu())
            takeSubmenu(*m_actions[i]);
        delete m_actions[i];
    }
    m_actions.resize(index);
}

void MenuMirror::giveSubmenu(EntryAction& action, std::shared_ptr<Menu> const& menu)
{
    auto* submenu = submenuOf(action);
    if (!submenu) {
        submenu = new MenuWindow(&m_window);
        action.setMenu(submenu);
    }
    submenu->setMenu(menu);
}

void MenuMirror::takeSubmenu(EntryAction& action)
{
    action.menu()->deleteLater();
    action.setMenu(nullptr);
}

/// Replaces a submenu that has been opened by an empty one, to free its window and entries. To
/// the layout both are the same.
void MenuMirror::renewSubmenu(EntryAction& action)
{
    auto const* submenu = submenuOf(action);
    if (!submenu)
        return;
    QScopedValueRollback const quiet(m_changesQuietly, true);
    if (submenu->internalWinId() != 0)
        takeSubmenu(action);
    giveSubmenu(action, nullptr);
}

void MenuMirror::fetchIconsSoon()
{
    if (m_awaitingIcons.empty() || m_fetchesSoon)
        return;
    m_fetchesSoon = true;
    QTimer::singleShot(0, &m_window, [this] { fetchIcons(); });
}

// A picture replaces a blank one of its size, so the layout stands.
void MenuMirror::fetchIcons()
{
    m_fetchesSoon = false;
    QScopedValueRollback const quiet(m_changesQuietly, true);
    QElapsedTimer timer;
    timer.start();
    auto next = m_awaitingIcons.begin();
    for (; next != m_awaitingIcons.end() && timer.elapsed() < iconSlice; ++next) {
        (*next)->fetchIcon();
        m_window.update(m_window.actionGeometry(*next));
    }
    m_awaitingIcons.erase(m_awaitingIcons.begin(), next);
}

} // namespace zv
