#include "app/menu/MenuIcon.h"

#include "app/menu/DynamicMenuProvider.h"
#include "base/MainThread.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zv {

namespace {

/// The commands that carry the icon of a file of the system, and what stands in for it.
struct KindFile {
    MenuItemKind::Case kind;
    std::string_view path;
    std::string_view fallback;
};

constexpr std::string_view dock = "/System/Library/CoreServices/Dock.app";
constexpr std::string_view systemSettings = "/System/Applications/System Settings.app";

constexpr std::array kindFiles {
    KindFile { MenuItemKind::dockMenu, dock, "" },
    KindFile { MenuItemKind::dockPrefs, dock, "" },
    KindFile { MenuItemKind::appStore, "/System/Applications/App Store.app", "" },
    KindFile { MenuItemKind::softwareUpdate, "/System/Library/ExtensionKit/Extensions/SoftwareUpdateSettingsExtension.appex", systemSettings },
    KindFile { MenuItemKind::simpleSystemPrefs, systemSettings, "" },
};

} // namespace

MenuIcon::MenuIcon(IconSource& source, DynamicMenuProvider const& lists, Url itemsFolder)
    : m_source(source)
    , m_lists(lists)
    , m_itemsFolder(std::move(itemsFolder))
{
}

ImageRef MenuIcon::iconForKind(MenuItemKind const& kind)
{
    assertMainThread();
    if (auto const* const list = m_lists.listOf(kind))
        return list->icon(*this);
    switch (kind.value()) {
    case MenuItemKind::revealZantheVellItems:
        return itemsFolderIcon();
    case MenuItemKind::aboutThisMac:
        return thisMacIcon();
    case MenuItemKind::customizeZantheVell:
    case MenuItemKind::quitZantheVell:
        return applicationIcon();
    default:
        return iconOfKindFile(kind);
    }
}

ImageRef MenuIcon::iconOfKindFile(MenuItemKind const& kind)
{
    auto const file = std::find_if(kindFiles.begin(), kindFiles.end(), [&](auto const& known) { return kind == known.kind; });
    if (file == kindFiles.end())
        return nullptr;
    auto const icon = iconForFile(Url::fromPath(file->path));
    return icon || file->fallback.empty() ? icon : iconForFile(Url::fromPath(file->fallback));
}

ImageRef MenuIcon::itemsFolderIcon()
{
    auto const icon = iconForFile(m_itemsFolder);
    return icon ? icon : genericFolderIcon();
}

ImageRef MenuIcon::iconForFile(Url const& url)
{
    assertMainThread();
    if (!url.isFile())
        return networkIcon();
    return cached(url.path(), [&] { return m_source.fileIcon(url); });
}

ImageRef MenuIcon::thisMacIcon()
{
    return cached("thisMac", [this] { return m_source.computerIcon(); });
}

ImageRef MenuIcon::genericFolderIcon()
{
    return cached("genericFolder", [this] { return m_source.folderIcon(); });
}

ImageRef MenuIcon::networkIcon()
{
    return cached("network", [this] { return m_source.networkIcon(); });
}

ImageRef MenuIcon::systemSettingsIcon() { return iconForFile(Url::fromPath(systemSettings)); }

ImageRef MenuIcon::applicationIcon() { return m_source.applicationIcon(); }

void MenuIcon::emptyCache() { m_cache.clear(); }

template <class Fetch> ImageRef MenuIcon::cached(std::string key, Fetch fetch)
{
    auto const known = m_cache.find(key);
    if (known != m_cache.end())
        return known->second;
    // What is not there is not kept: it may be there the next time it is asked for.
    auto image = fetch();
    if (image)
        m_cache.emplace(std::move(key), image);
    return image;
}

} // namespace zv
