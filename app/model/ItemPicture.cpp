#include "app/model/ItemPicture.h"

#include "app/model/OwnItems.h"
#include "platform/text/Text.h"

#include <algorithm>

namespace zv {

namespace {

constexpr char const* key = "picture";
constexpr char const* kinds[] = { "icon", "image" };
constexpr std::size_t longestName = 200;

std::optional<ItemPicture> pictureIn(PropertyList const& stored)
{
    auto const* record = stored.dictionary();
    for (auto const kind : { ItemPicture::Kind::icon, ItemPicture::Kind::image }) {
        auto const* name = record ? record->string(kinds[static_cast<int>(kind)]) : nullptr;
        if (name && isPictureName(*name))
            return ItemPicture { kind, *name };
    }
    return std::nullopt;
}

void eraseImage(PropertyList const& stored, std::set<std::string>& names)
{
    if (auto const picture = pictureIn(stored); picture && picture->kind == ItemPicture::Kind::image)
        names.erase(picture->name);
}

Url folderOf(Url const& itemsFolder) { return OwnItems::folderBeside(itemsFolder).appending("Pictures"); }

} // namespace

bool isPictureName(std::string_view name)
{
    bool const isLegible = isValidUtf8(name) && std::none_of(name.begin(), name.end(), [](char c) { return c == '/' || (c >= 0 && c < ' '); });
    return isLegible && !name.empty() && name.front() != '.' && name.size() <= longestName;
}

std::optional<ItemPicture> pictureOf(MenuItem const& item)
{
    auto const* stored = item.unrecognizedKeys.find(key);
    return stored ? pictureIn(*stored) : std::nullopt;
}

std::optional<std::string> imageNameOf(MenuItem const& item)
{
    auto const picture = pictureOf(item);
    return picture && picture->kind == ItemPicture::Kind::image ? std::optional(picture->name) : std::nullopt;
}

void setPicture(MenuItem& item, std::optional<ItemPicture> const& picture)
{
    item.unrecognizedKeys.remove(key);
    if (!picture)
        return;
    PropertyListDictionary stored;
    stored.append(kinds[static_cast<int>(picture->kind)], picture->name);
    item.unrecognizedKeys.set(key, std::move(stored));
}

ItemImages::ItemImages(Url const& itemsFolder, FileSystem& files)
    : m_folder(folderOf(itemsFolder))
    , m_files(files)
{
}

Url ItemImages::fileOf(ItemPicture const& image, Url const& itemsFolder) { return folderOf(itemsFolder).appending(image.name); }

Result<ItemPicture> ItemImages::add(std::vector<std::byte> const& png) const
{
    ItemPicture image { ItemPicture::Kind::image, Uuid::random().toString() + ".png" };
    auto const written = m_files.writePrivately(m_folder.appending(image.name), png);
    return written ? Result<ItemPicture>(std::move(image)) : Failure { written.error() };
}

std::set<std::string> ItemImages::names() const
{
    auto const found = m_files.names(m_folder);
    return found ? std::set<std::string>(found->begin(), found->end()) : std::set<std::string>();
}

void ItemImages::remove(std::set<std::string> const& names) const
{
    for (auto const& name : names)
        (void)m_files.remove(m_folder.appending(name));
}

void eraseImagesOf(std::vector<MenuItem> const& items, std::set<std::string>& names)
{
    for (auto const& item : items) {
        if (auto const* stored = item.unrecognizedKeys.find(key))
            eraseImage(*stored, names);
        eraseImagesOf(item.children, names);
    }
}

void eraseImagesIn(PropertyList const& stored, std::set<std::string>& names)
{
    if (auto const* array = stored.array()) {
        for (auto const& element : *array)
            eraseImagesIn(element, names);
    }
    auto const* record = stored.dictionary();
    if (!record)
        return;
    for (auto const& [name, value] : *record) {
        if (name == key)
            eraseImage(value, names);
        eraseImagesIn(value, names);
    }
}

} // namespace zv
