#include "app/menu/DynamicMenuProvider.h"

#include "base/MainThread.h"

#include <utility>

namespace zv {

void DynamicMenuProvider::add(std::unique_ptr<DynamicList> list)
{
    auto const kind = list->kind();
    m_lists.insert_or_assign(kind, std::move(list));
}

DynamicList* DynamicMenuProvider::listOf(MenuItemKind const& kind) const
{
    auto const found = m_lists.find(kind.value());
    return found == m_lists.end() ? nullptr : found->second.get();
}

void DynamicMenuProvider::refresh(std::vector<MenuItem> const& items) const
{
    assertMainThread();
    for (auto const& [kind, list] : m_lists) {
        if (containsKind(items, kind))
            list->refresh();
    }
}

} // namespace zv
