#include "app/lists/AllLists.h"
#include "app/lists/RecentItemsCache.h"
#include "app/menu/FileEntry.h"
#include "app/menu/MenuIcon.h"

namespace zv {

namespace {

/// The lists show no shortcut as in use that the file's own folder would not.
RecentItemsProvider::EntryForFile entryMaker(ListServices const& services)
{
    return [&files = services.files, reader = services.folders.reader()](Url const& url) {
        auto entry = fileEntry(url, files);
        if (entry.hotkey)
            entry.hotkeyDoubt = reader->doubtAbout(url);
        return entry;
    };
}

/// State shared by the four lists.
struct RecentItems {
    explicit RecentItems(ListServices const& services)
        : provider(services.seams.recentFiles, entryMaker(services))
        , cache(provider, services.preferences, services.clock)
    {
    }

    RecentItemsProvider provider;
    RecentItemsCache cache;
};

/// Shows the last known list at once and refreshes it for the next opening.
class RecentItemsList : public DynamicList {
public:
    RecentItemsList(MenuItemKind::Case kind, RecentItemsScope scope, std::shared_ptr<RecentItems> items)
        : m_kind(kind)
        , m_scope(scope)
        , m_items(std::move(items))
    {
    }
    MenuItemKind::Case kind() const override { return m_kind; }
    ImageRef icon(MenuIcon& icons) const override { return icons.systemIcon(SystemIcon::recentItems); }
    void fill(Done done) override
    {
        auto const* const known = m_items->cache.entries(m_scope);
        if (!known)
            return m_items->cache.load(m_scope, std::move(done));
        done(*known);
        refresh();
    }
    void refresh() override { m_items->cache.refresh(m_scope); }

private:
    MenuItemKind::Case m_kind;
    RecentItemsScope m_scope;
    std::shared_ptr<RecentItems> m_items;
};

} // namespace

void addRecentItemsLists(DynamicMenuProvider& lists, ListServices const& services)
{
    auto const items = std::make_shared<RecentItems>(services);
    lists.add(std::make_unique<RecentItemsList>(MenuItemKind::recentItems, RecentItemsScope::all, items));
    lists.add(std::make_unique<RecentItemsList>(MenuItemKind::recentApps, RecentItemsScope::applications, items));
    lists.add(std::make_unique<RecentItemsList>(MenuItemKind::recentFolders, RecentItemsScope::folders, items));
    lists.add(std::make_unique<RecentItemsList>(MenuItemKind::recentDocs, RecentItemsScope::documents, items));
}

} // namespace zv
