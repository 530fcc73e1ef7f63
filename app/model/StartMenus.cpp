#include "app/model/StartMenus.h"

#include "app/model/ItemLibrary.h"
#include "app/model/Locations.h"
#include "app/model/MenuStore.h"
#include "base/Translation.h"

#include <algorithm>
#include <span>

namespace zv {

namespace {

using Kind = MenuItemKind::Case;

/// A line of a menu.
struct Row {
    Kind kind;
    Sentence title {}; ///< of a submenu; of a file, which of the library's it is, else it stands for the user's folders
    bool isWithin = false; ///< in the submenu above
};

constexpr bool within = true;
constexpr Row line { MenuItemKind::separator };
constexpr Row applications { MenuItemKind::fsObject, { "Applications" } };
constexpr Row home { MenuItemKind::fsObject, { "Home" } };
constexpr Row userFolders { MenuItemKind::fsObject };

constexpr Row filesFirst[] = {
    home,
    userFolders,
    line,
    { MenuItemKind::zantheVellItems },
    { MenuItemKind::mountedVolumes },
    line,
    { MenuItemKind::recentDocs },
    { MenuItemKind::recentFolders },
    { MenuItemKind::recentServers },
    line,
    applications,
    { MenuItemKind::systemPrefs },
    line,
    { MenuItemKind::lockScreen },
    { MenuItemKind::sleep },
    { MenuItemKind::shutdown },
};

constexpr Row launcher[] = {
    applications,
    { MenuItemKind::recentApps },
    { MenuItemKind::runningApplications },
    { MenuItemKind::shortcuts },
    line,
    { MenuItemKind::zantheVellItems },
    { MenuItemKind::recentDocs },
    line,
    { MenuItemKind::appStore },
    { MenuItemKind::simpleSystemPrefs },
    { MenuItemKind::forceQuit },
    line,
    { MenuItemKind::lockScreen },
    { MenuItemKind::logOut },
};

constexpr Row everything[] = {
    { MenuItemKind::aboutThisMac },
    { MenuItemKind::submenu, mark("System") },
    { MenuItemKind::systemPrefs, {}, within },
    { MenuItemKind::appStore, {}, within },
    { MenuItemKind::softwareUpdate, {}, within },
    { MenuItemKind::dockMenu, {}, within },
    { MenuItemKind::ipAddress, {}, within },
    { MenuItemKind::location, {}, within },
    line,
    { MenuItemKind::submenu, mark("Files and Folders") },
    { MenuItemKind::fsObject, { "Home" }, within },
    { MenuItemKind::fsObject, {}, within },
    { MenuItemKind::zantheVellItems, {}, within },
    { MenuItemKind::revealZantheVellItems, {}, within },
    { MenuItemKind::mountedVolumes, {}, within },
    { MenuItemKind::submenu, mark("Recent") },
    { MenuItemKind::recentApps, {}, within },
    { MenuItemKind::recentDocs, {}, within },
    { MenuItemKind::recentFolders, {}, within },
    { MenuItemKind::recentServers, {}, within },
    line,
    applications,
    { MenuItemKind::runningApplications },
    { MenuItemKind::shortcuts },
    { MenuItemKind::forceQuit },
    line,
    { MenuItemKind::submenu, mark("Session") },
    { MenuItemKind::lockScreen, {}, within },
    { MenuItemKind::sleep, {}, within },
    { MenuItemKind::restart, {}, within },
    { MenuItemKind::shutdown, {}, within },
    { MenuItemKind::logOut, {}, within },
    { MenuItemKind::quitZantheVell, {}, within },
};

/// Makes items of rows, by the library's templates.
class Composer {
public:
    Composer(System const& system)
        : m_system(system)
        , m_locations(locationsOf(system))
        , m_library(loadItemLibrary(system.files.resources, m_locations, LibraryMode::everything))
    {
    }

    [[nodiscard]] std::vector<MenuItem> menu(std::span<Row const> rows) const
    {
        std::vector<MenuItem> items;
        for (auto const& row : rows) {
            auto& parent = row.isWithin ? items.back().children : items;
            auto made = itemsOf(row);
            std::move(made.begin(), made.end(), std::back_inserter(parent));
        }
        return items;
    }

private:
    [[nodiscard]] std::vector<MenuItem> itemsOf(Row const& row) const
    {
        if (row.kind == MenuItemKind::fsObject && row.title.isEmpty())
            return folders();
        if (row.kind == MenuItemKind::submenu) {
            auto submenu = MenuItem::ofKind(row.kind);
            submenu.title = row.title.english;
            return { submenu };
        }
        auto const found = std::find_if(m_library.begin(), m_library.end(), [&](LibraryEntry const& entry) {
            auto const& item = entry.itemTemplate;
            return item.kind == row.kind && (row.title.isEmpty() || item.title == row.title.english);
        });
        return found == m_library.end() ? std::vector<MenuItem>() : std::vector { withOwnId(found->itemTemplate) };
    }

    [[nodiscard]] std::vector<MenuItem> folders() const
    {
        std::vector<MenuItem> items;
        for (auto const& folder : m_system.places.userFolders) {
            if (!m_system.files.disk->exists(folder))
                continue;
            items.push_back(MenuItem::ofKind(MenuItemKind::fsObject));
            items.back().location = ItemLocation::forURL(folder, m_locations);
        }
        return items;
    }

    static MenuItem withOwnId(MenuItem item)
    {
        item.id = Uuid::random();
        return item;
    }

    System const& m_system;
    LocationServices m_locations;
    std::vector<LibraryEntry> m_library;
};

} // namespace

std::vector<StartMenu> startMenus(MenuStore const& store, System const& system)
{
    Composer const composer(system);
    std::vector<StartMenu> menus;
    if (auto given = store.givenMenu())
        menus.push_back({ tr("From Your Administrator"), tr("The menu that an administrator of this computer gives to everyone."), std::move(*given) });
    menus.push_back({ trc("a menu to start from", "Classic"), tr("This computer and its settings, what you used last, your folders, and how to leave."),
        store.programMenu() });
    menus.push_back({ trc("a menu to start from", "Files first"), tr("Your folders come first, and open as submenus; then disks, and what you opened last."),
        composer.menu(filesFirst) });
    menus.push_back(
        { trc("a menu to start from", "Launcher"), tr("Starts applications, and changes between those that are running."), composer.menu(launcher) });
    menus.push_back({ trc("a menu to start from", "Everything"), tr("All that the library has, in a few submenus. Take away what you do not need."),
        composer.menu(everything) });
    return menus;
}

} // namespace zv
