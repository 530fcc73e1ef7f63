#include "app/lists/AllLists.h"
#include "app/menu/MenuIcon.h"

namespace zv {

namespace {

/// The user's own items. A folder on a volume that may not answer is not touched on the main thread.
class ItemsFolderList : public DynamicList {
public:
    explicit ItemsFolderList(ListServices const& services)
        : m_folders(services.folders)
        , m_listed(services.listedFolders)
        , m_preferences(services.preferences)
        , m_folder(services.itemsFolder)
    {
    }
    MenuItemKind::Case kind() const override { return MenuItemKind::zantheVellItems; }
    ImageRef icon(MenuIcon& icons) const override { return icons.itemsFolderIcon(); }
    std::string noResponseTitle() const override { return tr(silentFolderTitle); }
    void fill(Done done) override
    {
        FolderListingOptions const options { m_preferences.showHiddenFiles(), m_preferences.sortFoldersFirst() };
        if (!m_folders.isRemote(m_folder))
            return done(taken(m_folders.list(m_folder, options)));
        m_folders.listInBackground(m_folder, options, [this, done = std::move(done)](FolderListing const& listing) { done(taken(listing)); });
    }

private:
    /// Hands the shortcuts in the names on. A folder that does not exist yet is an empty list.
    std::vector<DynamicEntry> taken(FolderListing const& listing)
    {
        if (!listing.failure)
            m_listed.folderListed(m_folder, listing.withHotkeys);
        return listing.failure == FolderReadFailure::notFound ? std::vector<DynamicEntry> {} : listing.entries;
    }

    FolderListings& m_folders;
    ListedFolderSink& m_listed;
    Preferences const& m_preferences;
    Url m_folder;
};

} // namespace

void addItemsFolderList(DynamicMenuProvider& lists, ListServices const& services) { lists.add(std::make_unique<ItemsFolderList>(services)); }

} // namespace zv
