#pragma once

#include "app/model/MenuItem.h"
#include "base/Url.h"
#include "platform/files/FileSystem.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The picture that the user gave an item, in the place of its kind's or its file's. Kept under one key among the item's
/// unrecognized ones, which every version writes back. Menus come from others, too: a name that could lead out of the
/// theme or out of the folder of images counts as none.
struct ItemPicture {
    enum class Kind : std::uint8_t { icon, image };
    Kind kind = Kind::icon;
    std::string name; ///< of an icon of the theme or a symbol of the system; of a file among the ItemImages

    friend bool operator==(ItemPicture const&, ItemPicture const&) = default;
};

[[nodiscard]] std::optional<ItemPicture> pictureOf(MenuItem const& item);
/// The name of the item's image; none for an icon.
[[nodiscard]] std::optional<std::string> imageNameOf(MenuItem const& item);
/// None takes the key away.
void setPicture(MenuItem& item, std::optional<ItemPicture> const& picture);

/// True for a name that leads nowhere else: one component of a path, and not hidden.
[[nodiscard]] bool isPictureName(std::string_view name);

/// The images that items have for pictures: small copies in a folder of the user's own items, that nobody else can read.
/// An image stays when its item changes, so that undo and the backups find it. Any thread.
class ItemImages {
public:
    ItemImages(Url const& itemsFolder, FileSystem& files);

    [[nodiscard]] static Url fileOf(ItemPicture const& image, Url const& itemsFolder);
    [[nodiscard]] Result<ItemPicture> add(std::vector<std::byte> const& png) const;
    /// The names of all images.
    [[nodiscard]] std::set<std::string> names() const;
    void remove(std::set<std::string> const& names) const;

private:
    Url m_folder;
    FileSystem& m_files;
};

/// Leaves the names that nothing in the menu points at.
void eraseImagesOf(std::vector<MenuItem> const& items, std::set<std::string>& names);
/// The same for a menu's stored form, whatever version wrote it.
void eraseImagesIn(PropertyList const& stored, std::set<std::string>& names);

} // namespace zv
