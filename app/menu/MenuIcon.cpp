#include "app/menu/MenuIcon.h"

#include "app/menu/DynamicMenuProvider.h"
#include "base/MainThread.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace zv {

namespace {

/// A command's system icon, and its fallback.
struct KindPicture {
    MenuItemKind::Case kind;
    SystemIcon picture;
    std::optional<SystemIcon> fallback {}; ///< for a system that lacks the picture
};

constexpr std::array kindPictures {
    KindPicture { MenuItemKind::dockMenu, SystemIcon::dock },
    KindPicture { MenuItemKind::dockPrefs, SystemIcon::dock },
    KindPicture { MenuItemKind::aboutThisMac, SystemIcon::computer },
    KindPicture { MenuItemKind::appStore, SystemIcon::appStore },
    KindPicture { MenuItemKind::softwareUpdate, SystemIcon::softwareUpdate, SystemIcon::systemSettings },
    KindPicture { MenuItemKind::simpleSystemPrefs, SystemIcon::systemSettings },
    KindPicture { MenuItemKind::customizeZantheVell, SystemIcon::application },
    KindPicture { MenuItemKind::quitZantheVell, SystemIcon::application },
    // Of the command pictures.
    KindPicture { MenuItemKind::forceQuit, SystemIcon::forceQuit },
    KindPicture { MenuItemKind::lockScreen, SystemIcon::lockScreen },
    KindPicture { MenuItemKind::logOut, SystemIcon::logOut },
    KindPicture { MenuItemKind::logOutForced, SystemIcon::logOut },
    KindPicture { MenuItemKind::restart, SystemIcon::restart },
    KindPicture { MenuItemKind::restartForced, SystemIcon::restart },
    KindPicture { MenuItemKind::shutdown, SystemIcon::shutDown },
    KindPicture { MenuItemKind::shutdownForced, SystemIcon::shutDown },
    KindPicture { MenuItemKind::sleep, SystemIcon::sleep },
};

/// The pictures of commands and lists that have none in the Mac's own menu.
constexpr std::array commandPictures { SystemIcon::forceQuit, SystemIcon::lockScreen, SystemIcon::logOut, SystemIcon::recentItems, SystemIcon::restart,
    SystemIcon::runningApplications, SystemIcon::shutDown, SystemIcon::sleep, SystemIcon::volumes };

/// Takes the image from the cache, else fetches it. A missing image is not cached: it may exist the next time.
template <class Cache, class Fetch> ImageRef cached(Cache& cache, typename Cache::key_type const& key, Fetch fetch)
{
    auto const known = cache.find(key);
    if (known != cache.end())
        return known->second;
    auto image = fetch();
    if (image)
        cache.emplace(key, image);
    return image;
}

} // namespace

MenuIcon::MenuIcon(IconSource& source, DynamicMenuProvider const& lists, Url itemsFolder, std::function<bool()> showsCommands)
    : m_source(source)
    , m_lists(lists)
    , m_itemsFolder(std::move(itemsFolder))
    , m_showsCommands(std::move(showsCommands))
{
}

ImageRef MenuIcon::iconForKind(MenuItemKind const& kind)
{
    assertMainThread();
    if (auto const* const list = m_lists.listOf(kind))
        return list->icon(*this);
    if (kind == MenuItemKind::revealZantheVellItems)
        return itemsFolderIcon();
    auto const known = std::find_if(kindPictures.begin(), kindPictures.end(), [&](auto const& row) { return kind == row.kind; });
    if (known == kindPictures.end())
        return nullptr;
    auto const icon = systemIcon(known->picture);
    return icon || !known->fallback ? icon : systemIcon(*known->fallback);
}

ImageRef MenuIcon::itemsFolderIcon()
{
    auto const icon = iconForFile(m_itemsFolder);
    return icon ? icon : systemIcon(SystemIcon::folder);
}

ImageRef MenuIcon::iconForFile(Url const& url)
{
    assertMainThread();
    if (!url.isFile())
        return networkIcon();
    return cached(m_files, url.path(), [&] { return m_source.fileIcon(url); });
}

ImageRef MenuIcon::iconForPicture(ItemPicture const& picture, ImageRef const& otherwise)
{
    assertMainThread();
    if (picture.kind == ItemPicture::Kind::icon)
        return m_source.namedIcon(picture.name, otherwise);
    return m_source.imageIn(ItemImages::fileOf(picture, m_itemsFolder), otherwise);
}

ImageRef MenuIcon::systemIcon(SystemIcon icon)
{
    if (std::ranges::find(commandPictures, icon) != commandPictures.end() && !m_showsCommands())
        return nullptr;
    return cached(m_systemIcons, icon, [&] { return m_source.systemIcon(icon); });
}

void MenuIcon::emptyCache()
{
    m_files.clear();
    m_systemIcons.clear();
}

} // namespace zv
