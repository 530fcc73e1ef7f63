#include "app/model/SetupTransfer.h"

#include "app/model/ItemPicture.h"
#include "app/model/KeptEntries.h"
#include "app/model/MenuBackups.h"
#include "base/MainThread.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

namespace zv {

namespace {

constexpr std::string_view keptPrefix = "Everything ";
constexpr std::size_t keptCount = 10;

/// Calls `change` with each item, the groups before what is in them, until it fails.
template <class Items, class Change> Result<void> forEach(Items& items, Change const& change)
{
    for (auto& item : items) {
        if (auto done = change(item); !done)
            return done;
        if (auto done = forEach(item.children, change); !done)
            return done;
    }
    return {};
}

std::string withoutFinalSlash(std::string path)
{
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

/// Finds a file by its path alone on another machine, where another file may have the same number.
void forgetBookmarks(std::vector<MenuItem>& items)
{
    (void)forEach(items, [](MenuItem& item) {
        if (item.location && item.location->path)
            item.location->bookmark.reset();
        return Result<void>();
    });
}

} // namespace

SetupTransfer::SetupTransfer(Services services)
    : m_services(std::move(services))
    , m_ownItems(m_services.system, m_services.itemsFolder, *m_services.files.disk)
{
}

LocationServices SetupTransfer::locations() const { return { *m_services.files.disk, m_services.files.bookmarks, m_services.home }; }

Url SetupTransfer::fileOfImage(std::string const& name) const { return ItemImages::fileOf({ ItemPicture::Kind::image, name }, m_services.itemsFolder); }

Setup SetupTransfer::collect(std::vector<MenuItem> const& items) const
{
    assertMainThread();
    Setup setup;
    setup.home = withoutFinalSlash(m_services.home);
    setup.menu.items = items;
    for (auto const key : setupPreferenceKeys()) {
        if (auto stored = m_services.files.defaults.storedObject(key))
            setup.preferences.set(key, std::move(*stored));
    }
    (void)forEach(setup.menu.items, [&](MenuItem const& item) {
        ++setup.menu.itemCount;
        if (auto own = ownItemOf(item))
            setup.ownItems.emplace(item.id, std::move(*own));
        collectImage(item, setup);
        return Result<void>();
    });
    if (m_services.system == SystemKind::linuxDesktop)
        forgetBookmarks(setup.menu.items);
    return setup;
}

std::optional<OwnItem> SetupTransfer::ownItemOf(MenuItem const& item) const
{
    bool const isFile = item.kind == MenuItemKind::fsObject && item.location && item.location->path;
    return isFile ? m_ownItems.read(Url::fromPath(*item.location->path)) : std::nullopt;
}

void SetupTransfer::collectImage(MenuItem const& item, Setup& setup) const
{
    auto const name = imageNameOf(item);
    auto data = name && !setup.images.contains(*name) ? m_services.files.disk->read(fileOfImage(*name)) : Failure { std::string() };
    if (data && data->size() <= SetupLimits::imageSize)
        setup.images.emplace(*name, std::move(data).value());
}

Setup SetupTransfer::movedHere(Setup setup) const
{
    auto const moved = [from = setup.home + "/", to = withoutFinalSlash(m_services.home) + "/"](
                           std::string const& path) { return from.size() > 1 && path.starts_with(from) ? to + path.substr(from.size()) : path; };
    (void)forEach(setup.menu.items, [&](MenuItem& item) {
        if (item.location && item.location->path)
            item.location->path = moved(*item.location->path);
        return Result<void>();
    });
    for (auto& [id, own] : setup.ownItems)
        own.folder = moved(own.folder);
    if (auto const* kept = setup.preferences.find(KeptEntries::defaultsKey))
        setup.preferences.set(KeptEntries::defaultsKey, KeptEntries::moved(*kept, moved));
    return setup;
}

std::vector<MissingTarget> SetupTransfer::missing(Setup const& setup) const
{
    std::vector<MissingTarget> missing;
    auto const addUnlessThere = [&](std::string const& title, ItemLocation const& location) {
        bool const isRemote = m_services.files.folders->isRemote(Url::fromPath(location.path.value_or("/")));
        if (!isRemote && !location.resolvedURL(locations()))
            missing.push_back({ title, location.path.value_or("") });
    };
    (void)forEach(setup.menu.items, [&](MenuItem const& item) {
        auto const own = setup.ownItems.find(item.id);
        if (own == setup.ownItems.end() && item.kind == MenuItemKind::fsObject && item.location)
            addUnlessThere(item.displayTitle(), *item.location);
        if (own != setup.ownItems.end() && !own->second.folder.empty())
            addUnlessThere(item.displayTitle(), { .path = own->second.folder });
        return Result<void>();
    });
    if (auto const* kept = setup.preferences.find(KeptEntries::defaultsKey)) {
        for (auto const& file : KeptEntries::files(*kept))
            addUnlessThere(file.lastPathComponent(), { .path = file.path() });
    }
    return missing;
}

std::vector<std::string> SetupTransfer::locked(Setup const& setup) const
{
    std::vector<std::string> locked;
    for (auto const& [key, value] : setup.preferences) {
        if (m_services.files.defaults.isLocked(key))
            locked.push_back(key);
    }
    if (!takesMenu())
        locked.emplace_back(MenuStore::defaultsKey);
    return locked;
}

Result<Url> SetupTransfer::keep(std::vector<MenuItem> const& items, Url const& folder, WallTime now) const
{
    auto const document = setupDocument(collect(items));
    if (!document)
        return Failure { document.error() };
    auto const file = folder.appending(std::string(keptPrefix) + fileTimeText(now) + " UTC.plist");
    if (auto const written = m_services.files.disk->writePrivately(file, *document); !written)
        return Failure { written.error() };
    auto const names = m_services.files.disk->names(folder);
    std::set<std::string> kept;
    for (auto const& name : names ? *names : std::vector<std::string>()) {
        if (name.starts_with(keptPrefix))
            kept.insert(name);
    }
    for (; kept.size() > keptCount; kept.erase(kept.begin()))
        (void)m_services.files.disk->remove(folder.appending(*kept.begin()));
    return file;
}

Result<void> SetupTransfer::writeFiles(Setup& setup) const
{
    assertMainThread();
    return forEach(setup.menu.items, [&](MenuItem& item) {
        auto const pointed = pointAtOwnItem(item, setup);
        return pointed ? writeImage(item, setup) : pointed;
    });
}

/// An item that has the same own item already, as this machine's export does, keeps it.
Result<void> SetupTransfer::pointAtOwnItem(MenuItem& item, Setup const& setup) const
{
    auto const own = setup.ownItems.find(item.id);
    if (own == setup.ownItems.end() || ownItemOf(item) == own->second)
        return {};
    auto const file = m_ownItems.write(own->second);
    if (!file)
        return Failure { file.error() };
    item.kind = MenuItemKind::fsObject;
    item.location = ItemLocation::forURL(*file, locations());
    return {};
}

/// Never replaces an image: one that is another here gets another name.
Result<void> SetupTransfer::writeImage(MenuItem& item, Setup const& setup) const
{
    auto const name = imageNameOf(item);
    auto const image = name ? setup.images.find(*name) : setup.images.end();
    if (image == setup.images.end())
        return {};
    auto const there = m_services.files.disk->read(fileOfImage(*name));
    if (there && *there == image->second)
        return {};
    auto const renamed = m_services.files.disk->isTaken(fileOfImage(*name)) ? Uuid::random().toString() + ".png" : *name;
    if (auto const written = m_services.files.disk->writePrivately(fileOfImage(renamed), image->second); !written)
        return written;
    setPicture(item, ItemPicture { ItemPicture::Kind::image, renamed });
    return {};
}

Result<void> SetupTransfer::storePreferences(Setup const& setup) const
{
    assertMainThread();
    auto& defaults = m_services.files.defaults;
    for (auto const key : setupPreferenceKeys()) {
        auto const* value = setup.preferences.find(key);
        if (defaults.isLocked(key))
            continue;
        auto const stored = value ? defaults.setObject(key, *value) : defaults.storedObject(key) ? defaults.removeObject(key) : Result<void>();
        if (!stored)
            return stored;
    }
    return {};
}

} // namespace zv
