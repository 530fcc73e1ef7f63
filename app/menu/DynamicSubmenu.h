#pragma once

#include "app/menu/DynamicMenuProvider.h"
#include "app/menu/DynamicMenuSource.h"
#include "app/menu/FolderListings.h"
#include "app/menu/ListedFolderSink.h"
#include "app/menu/Menu.h"
#include "app/menu/OpeningKeys.h"
#include "app/menu/ScriptMenus.h"
#include "base/Lifetime.h"
#include "platform/lists/InstalledApplications.h"
#include "platform/time/Timers.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

class MenuBuilder;

/// The services that fill submenus; all outlive the menus.
struct SubmenuSources {
    FolderListings& folders;
    DynamicMenuProvider const& lists;
    ListedFolderSink& listedFolders;
    Timers& timers;
    OpeningKeys& openingKeys;
    ApplicationFolders* applications = nullptr; ///< null where a folder of applications is listed like any other
    ScriptMenus* scripts = nullptr; ///< null where no script fills a menu
};

/// Entries to show; `totalCount` includes those already left out.
struct EntryList {
    EntryList(std::vector<DynamicEntry> all) // NOLINT(google-explicit-constructor): a whole list is one
        : entries(std::move(all))
        , totalCount(entries.size())
    {
    }
    EntryList(std::vector<DynamicEntry> first, std::size_t total)
        : entries(std::move(first))
        , totalCount(total)
    {
    }

    std::vector<DynamicEntry> entries;
    std::size_t totalCount;
};

/// Refills the menu, up to the preferred number of entries; a last line counts the others.
/// `emptyTitle` is shown for a list without entries.
void populate(Menu& menu, EntryList list, std::int64_t depth, std::string_view emptyTitle, MenuBuilder const& builder, FolderChoicesRef const& choices = {});

/// Drops separators at both ends, and all but the first of several in a row.
void tidySeparators(std::vector<DynamicEntry>& entries);

/// Shows the one disabled line "Loading…".
void showLoading(Menu& menu);
[[nodiscard]] bool isLoading(Menu const& menu);

/// Fills its menu from a source each time the menu is about to open. The entry owns it.
class DynamicSubmenuDelegate : public MenuDelegate {
public:
    DynamicSubmenuDelegate(DynamicMenuSource source, EntrySubject subject, MenuBuilder const& builder, SubmenuSources const& sources);

    [[nodiscard]] DynamicMenuSource const& source() const { return m_source; }
    void menuNeedsUpdate(Menu& menu) override;

private:
    void addHead(Menu& menu) const;
    void fill(Menu& menu, DynamicMenuSource::Folder const& folder);
    void fill(Menu& menu, DynamicMenuSource::List const& list);
    void fill(Menu& menu, DynamicMenuSource::Script const& script);
    void show(Menu& menu, DynamicMenuSource::Script const& script, ScriptResult const& result) const;
    void fillRemoteFolder(Menu& menu, DynamicMenuSource::Folder const& folder, FolderListingOptions const& options);
    /// Shows the installed applications, in submenus by category where they are many.
    void fillApplications(Menu& menu);
    void showApplications(Menu& menu, std::vector<InstalledApplication> const& applications) const;
    /// Shows the reason if nothing has come after ten seconds.
    void startPatience(Menu& menu, std::string reason);
    void show(Menu& menu, DynamicMenuSource::Folder const& folder, FolderListing listing);
    void show(Menu& menu, DynamicList const& list, ListContent content, std::int64_t depth) const;
    /// Changes the menu later, if it still exists and has not opened again since.
    template <class Change> auto later(Menu& menu, Change change);

    DynamicMenuSource m_source;
    EntrySubject m_subject; ///< of the entry that has the submenu
    MenuBuilder const& m_builder;
    SubmenuSources const& m_sources;
    std::unique_ptr<Timer> m_patience; ///< runs while there is no answer
    bool m_hasHead = false; ///< Option was held when it opened
    bool m_isFilling = false; ///< while true, an answer does not notify the mirror
    unsigned m_opening = 0; ///< counts openings, to ignore late answers for an earlier one
    Lifetime m_lifetime;
};

} // namespace zv
