#include "app/menubar/MenuFilter.h"

#include "app/menu/Menu.h"
#include "platform/text/Text.h"

namespace zv {

void MenuFilter::setMenu(Menu const* menu)
{
    m_menu = menu;
    m_isFolded = false;
    m_foldedTitles.clear();
}

void MenuFilter::removeLast()
{
    auto const characters = firstGraphemes(m_text, m_text.size());
    if (!characters.empty())
        m_text.resize(m_text.size() - characters.back().size());
}

std::string MenuFilter::announcement(std::ptrdiff_t matches, Sentence const& instead) const
{
    if (m_text.empty())
        return {};
    if (matches == 0)
        return tr("%1: %2", m_text, tr(instead));
    // TRANSLATORS: what a screen reader says while one types into the menu: what was typed, and how many entries hold it
    return tr("%1: %2", m_text, trn("%1 match", "%1 matches", static_cast<std::size_t>(matches)));
}

std::vector<bool> MenuFilter::visibleEntries()
{
    auto const count = m_menu ? m_menu->entries.size() : 0;
    if (m_text.empty())
        return std::vector<bool>(count, true);
    if (!m_isFolded)
        foldTitles();
    auto const wanted = foldedForSearch(m_text);
    std::vector<bool> visible(count);
    for (std::size_t i = 0; i < count; ++i)
        visible[i] = !m_foldedTitles[i].empty() && m_foldedTitles[i].find(wanted) != std::string::npos;
    return visible;
}

void MenuFilter::foldTitles()
{
    for (auto const& entry : m_menu->entries)
        m_foldedTitles.push_back(entry.type == MenuEntry::Type::separator ? std::string() : foldedForSearch(entry.visibleTitle()));
    m_isFolded = true;
}

} // namespace zv
