#pragma once

#include "app/model/ItemPicture.h"
#include "app/model/MenuItemKind.h"
#include "base/Url.h"
#include "platform/desk/IconSource.h"
#include "platform/desk/Image.h"

#include <functional>
#include <string>
#include <unordered_map>

namespace zv {

class DynamicMenuProvider;

/// The icons of menu entries. Main thread only.
class MenuIcons {
public:
    virtual ~MenuIcons() = default;
    /// Null when the kind has none.
    [[nodiscard]] virtual ImageRef iconForKind(MenuItemKind const& kind) = 0;
    [[nodiscard]] virtual ImageRef iconForFile(Url const& url) = 0;
    [[nodiscard]] virtual ImageRef networkIcon() = 0;
    [[nodiscard]] virtual ImageRef iconForCategory(ApplicationCategory category) = 0;
    /// The picture that the user gave an item; `otherwise` where the system lacks it.
    [[nodiscard]] virtual ImageRef iconForPicture(ItemPicture const& picture, ImageRef const& otherwise) = 0;
    /// Empties the cache, so that the next menu fetches its icons afresh.
    virtual void emptyCache() = 0;
};

/// The icons, each fetched once and kept until the cache is emptied. Main thread only.
class MenuIcon : public MenuIcons {
public:
    /// `source` outlives this, and so do the lists, which know their own icons. `showsCommands` tells whether commands
    /// have icons that have none in the Mac's own menu.
    MenuIcon(IconSource& source, DynamicMenuProvider const& lists, Url itemsFolder, std::function<bool()> showsCommands);

    [[nodiscard]] ImageRef iconForKind(MenuItemKind const& kind) override;
    /// A URL that is no file gets the network icon.
    [[nodiscard]] ImageRef iconForFile(Url const& url) override;
    [[nodiscard]] ImageRef iconForCategory(ApplicationCategory category) override { return m_source.categoryIcon(category); }
    [[nodiscard]] ImageRef iconForPicture(ItemPicture const& picture, ImageRef const& otherwise) override;
    void emptyCache() override;

    [[nodiscard]] ImageRef itemsFolderIcon();
    [[nodiscard]] ImageRef systemIcon(SystemIcon icon);
    [[nodiscard]] ImageRef thisMacIcon() { return systemIcon(SystemIcon::computer); }
    [[nodiscard]] ImageRef genericFolderIcon() { return systemIcon(SystemIcon::folder); }
    [[nodiscard]] ImageRef networkIcon() override { return systemIcon(SystemIcon::network); }
    [[nodiscard]] ImageRef applicationIcon() { return systemIcon(SystemIcon::application); }

private:
    IconSource& m_source;
    DynamicMenuProvider const& m_lists;
    Url m_itemsFolder;
    std::function<bool()> m_showsCommands;
    std::unordered_map<std::string, ImageRef> m_files; ///< by path
    std::unordered_map<SystemIcon, ImageRef> m_systemIcons;
};

} // namespace zv
