#include "app/lists/AllLists.h"
#include "app/lists/ListEntries.h"
#include "app/lists/RecentItemsCache.h"
#include "app/menu/FileEntry.h"
#include "app/menu/MenuIcon.h"
#include "base/Translation.h"

#include <algorithm>
#include <iterator>

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

struct RecentList {
    MenuItemKind::Case kind;
    RecentItemsScope scope;
};

constexpr RecentList recentLists[] = {
    { MenuItemKind::recentItems, RecentItemsScope::all },
    { MenuItemKind::recentApps, RecentItemsScope::applications },
    { MenuItemKind::recentFolders, RecentItemsScope::folders },
    { MenuItemKind::recentDocs, RecentItemsScope::documents },
};

MenuItemKind::Case kindOf(RecentItemsScope scope)
{
    return std::find_if(std::begin(recentLists), std::end(recentLists), [scope](auto const& list) { return list.scope == scope; })->kind;
}

/// State shared by the lists.
class RecentItems {
public:
    explicit RecentItems(ListServices const& services)
        : m_preferences(services.preferences)
        , m_kept(services.kept)
        , m_folders(services.folders)
        , m_files(services.files)
        , m_entryForFile(entryMaker(services))
        , m_provider(services.seams.recentFiles, m_entryForFile)
        , m_cache(
              m_provider, [this](RecentItemsScope scope) { return limit() + static_cast<std::int64_t>(m_kept.of(kindOf(scope)).size()); }, services.clock)
    {
    }

    [[nodiscard]] RecentItemsCache& cache() { return m_cache; }
    [[nodiscard]] std::vector<DynamicEntry> shown(RecentList list, std::vector<DynamicEntry> const& recent) const
    {
        std::vector<DynamicEntry> kept;
        for (auto const& url : m_kept.of(list.kind)) {
            if (url.isFile())
                kept.push_back(keptEntry(url, list.scope));
        }
        return keptFirst(list.kind, std::move(kept), recent, limit());
    }

private:
    [[nodiscard]] std::int64_t limit() const { return m_preferences.recentItemsLimit(); }

    /// A file on a server is not looked at.
    [[nodiscard]] DynamicEntry keptEntry(Url const& url, RecentItemsScope scope) const
    {
        if (m_folders.isRemote(url))
            return entryFromName(url, scope == RecentItemsScope::folders);
        auto entry = m_entryForFile(url);
        if (!m_files.traits(url))
            entry.unavailabilityReason = tr("This file was moved or deleted, or the volume that holds it is away.");
        return entry;
    }

    Preferences const& m_preferences;
    KeptEntries const& m_kept;
    FolderListings const& m_folders;
    FileSystem const& m_files;
    RecentItemsProvider::EntryForFile m_entryForFile;
    RecentItemsProvider m_provider;
    RecentItemsCache m_cache;
};

/// Shows the last known list at once and refreshes it for the next opening.
class RecentItemsList : public DynamicList {
public:
    RecentItemsList(RecentList list, std::shared_ptr<RecentItems> items)
        : m_list(list)
        , m_items(std::move(items))
    {
    }
    MenuItemKind::Case kind() const override { return m_list.kind; }
    ImageRef icon(MenuIcon& icons) const override { return icons.systemIcon(SystemIcon::recentItems); }
    void fill(Done done) override
    {
        auto show = [this, done = std::move(done)](std::vector<DynamicEntry> const& recent) { done(m_items->shown(m_list, recent)); };
        auto const* const known = m_items->cache().entries(m_list.scope);
        if (!known)
            return m_items->cache().load(m_list.scope, std::move(show));
        show(*known);
        refresh();
    }
    void refresh() override { m_items->cache().refresh(m_list.scope); }

private:
    RecentList m_list;
    std::shared_ptr<RecentItems> m_items;
};

} // namespace

void addRecentItemsLists(DynamicMenuProvider& lists, ListServices const& services)
{
    auto const items = std::make_shared<RecentItems>(services);
    for (auto const& list : recentLists)
        lists.add(std::make_unique<RecentItemsList>(list, items));
}

} // namespace zv
