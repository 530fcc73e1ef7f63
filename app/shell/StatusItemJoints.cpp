#include "app/shell/StatusItemJoints.h"

#include <utility>

namespace zv {

void RecentItemsJoint::refreshRecentItems(std::vector<MenuItem> const& items)
{
    static constexpr std::pair<MenuItemKind::Case, RecentItemsScope> scopes[] = {
        { MenuItemKind::recentItems, RecentItemsScope::all },
        { MenuItemKind::recentApps, RecentItemsScope::applications },
        { MenuItemKind::recentFolders, RecentItemsScope::folders },
        { MenuItemKind::recentDocs, RecentItemsScope::documents },
    };
    for (auto const& [kind, scope] : scopes) {
        if (containsKind(items, kind))
            m_cache.refresh(scope);
    }
}

void HotkeysJoint::setTriggerHandlers(std::function<void(Uuid const&)> item, std::function<void(Url const&)> file)
{
    m_center.onTrigger = [item = std::move(item), file = std::move(file)](HotkeyTarget const& target) {
        if (auto const* id = target.itemID())
            item(*id);
        else if (auto const* url = target.fileURL())
            file(*url);
    };
}

} // namespace zv
