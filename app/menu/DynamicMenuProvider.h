#pragma once

#include "app/menu/DynamicEntry.h"
#include "app/menu/FolderListings.h"
#include "app/menu/Menu.h"
#include "app/model/ItemLocation.h"
#include "app/model/MenuItemKind.h"
#include "app/model/Preferences.h"
#include "base/Url.h"
#include "platform/lists/Lists.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace zv {

/// Computes the list of one or more dynamic kinds. Main thread only.
class DynamicListProvider {
public:
    virtual ~DynamicListProvider() = default;
    /// Calls `done` exactly once: before it returns when the list is at hand, else later on
    /// the main thread. `done` may outlive the menu it fills; it checks that itself.
    virtual void entries(
        MenuItemKind const& kind, std::optional<ItemLocation> const& location, std::int64_t depth, std::function<void(std::vector<DynamicEntry>)> done)
        = 0;
};

/// The lists of what the machine has now: its applications, volumes, servers, addresses and
/// settings, and the Items folder.
class DynamicMenuProvider : public DynamicListProvider {
public:
    struct Services {
        Lists const& lists;
        Preferences const& preferences;
        FolderListings& folders;
        Url itemsFolder;
    };

    /// The services outlive this.
    explicit DynamicMenuProvider(Services services);

    void entries(MenuItemKind const& kind, std::optional<ItemLocation> const& location, std::int64_t depth,
        std::function<void(std::vector<DynamicEntry>)> done) override;

private:
    void listItemsFolder(std::function<void(std::vector<DynamicEntry>)> done) const;

    Services m_services;
};

/// Fills a submenu whose entries are not files: shortcuts, network locations.
class SubmenuFiller {
public:
    virtual ~SubmenuFiller() = default;
    virtual void fill(Menu& menu) = 0;
};

/// Learns the shortcuts that file names carry, folder by folder, as they are listed.
class ListedFolderSink {
public:
    virtual ~ListedFolderSink() = default;
    /// `withHotkeys` are those entries of the folder whose name carries a shortcut; may be empty.
    virtual void folderListed(Url const& folder, std::vector<DynamicEntry> const& withHotkeys) = 0;
};

} // namespace zv
