#include "app/lists/AllLists.h"
#include "app/menu/MenuIcon.h"

namespace zv {

namespace {

/// A folder that does not exist yet is an empty list.
std::vector<DynamicEntry> entriesOf(FolderListing const& listing)
{
    return listing.failure == FolderReadFailure::notFound ? std::vector<DynamicEntry> {} : listing.entries;
}

/// The user's own items. A folder on a volume that may not answer is not touched on the main thread.
class ItemsFolderList : public DynamicList {
public:
    ItemsFolderList(FolderListings& folders, Preferences const& preferences, Url folder)
        : m_folders(folders)
        , m_preferences(preferences)
        , m_folder(std::move(folder))
    {
    }
    MenuItemKind::Case kind() const override { return MenuItemKind::zantheVellItems; }
    ImageRef icon(MenuIcon& icons) const override { return icons.itemsFolderIcon(); }
    std::string noResponseTitle() const override { return tr(silentFolderTitle); }
    void fill(Done done) override
    {
        FolderListingOptions const options { m_preferences.showHiddenFiles(), m_preferences.sortFoldersFirst() };
        if (!m_folders.isRemote(m_folder))
            return done(entriesOf(m_folders.list(m_folder, options)));
        m_folders.listInBackground(m_folder, options, [done = std::move(done)](FolderListing const& listing) { done(entriesOf(listing)); });
    }

private:
    FolderListings& m_folders;
    Preferences const& m_preferences;
    Url m_folder;
};

} // namespace

void addItemsFolderList(DynamicMenuProvider& lists, ListServices const& services)
{
    lists.add(std::make_unique<ItemsFolderList>(services.folders, services.preferences, services.itemsFolder));
}

} // namespace zv
