#include "platform/linux/menu/FoundEntries.h"

#include "platform/linux/menu/EntryAction.h"
#include "platform/linux/menu/MenuWindow.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace zv {

FoundEntries::FoundEntries(MenuWindow& window, std::function<void()> onAnswer)
    : m_window(window)
    , m_onAnswer(std::move(onAnswer))
    , m_mirror(window)
{
}

void FoundEntries::find(std::string const& text, std::size_t matches)
{
    QScopedValueRollback const asking(m_isAsking, true);
    m_isBehindOthers = matches > 0;
    if (!m_search && !text.empty() && m_window.menu() && m_window.topMenu().menu()) {
        m_search = m_window.topMenu().menu()->searchBelow(*m_window.menu());
        if (m_search)
            m_search->onFound = [this](MenuSearch::Found found) { take(std::move(found)); };
    }
    m_answer.clear();
    m_isSearching = m_search != nullptr;
    if (m_search)
        m_search->find(text, matches);
}

void FoundEntries::take(MenuSearch::Found found)
{
    m_answer = std::move(found.entries);
    m_isSearching = !found.isFinal;
    if (!m_isAsking)
        m_onAnswer();
}

void FoundEntries::show()
{
    auto& entries = m_shown->entries;
    entries.clear();
    if (m_isBehindOthers && !m_answer.empty())
        entries.push_back(MenuEntry::separator());
    entries.insert(entries.end(), m_answer.begin(), m_answer.end());
    m_mirror.show(*m_shown);
}

void FoundEntries::drop()
{
    m_mirror.dropAwaitedIcons();
    m_mirror.dropAll();
    m_shown->entries.clear();
    m_answer.clear();
}

MenuEntry const* FoundEntries::entryOf(QAction const* action) const
{
    auto const& actions = m_mirror.actions();
    auto const found = std::find(actions.begin(), actions.end(), action);
    return found == actions.end() ? nullptr : &m_shown->entries[static_cast<std::size_t>(found - actions.begin())];
}

} // namespace zv
