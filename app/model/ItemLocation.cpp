#include "app/model/ItemLocation.h"

#include "app/model/HashCombiner.h"
#include "app/model/PlainText.h"
#include "app/model/RecordReader.h"

#include <array>
#include <utility>

namespace zv {

namespace {

/// Folders to which a system upgrade may have moved an application.
constexpr std::array<std::string_view, 6> applicationFolders { "/System/Applications", "/Applications", "/System/Applications/Utilities",
    "/Applications/Utilities", "/System/Library/CoreServices", "/System/Library/CoreServices/Applications" };

std::optional<Url> existingFile(std::string_view path, FileSystem const& files)
{
    if (!path.starts_with('/'))
        return std::nullopt;
    auto const url = Url::fromPath(path);
    return files.exists(url) ? std::optional(url) : std::nullopt;
}

std::optional<Url> relocatedFile(std::string_view path, FileSystem const& files)
{
    auto const name = lastPathComponent(path);
    if (name.empty() || name == "/" || name == "." || name == "..")
        return std::nullopt;
    for (auto const folder : applicationFolders) {
        auto const candidate = Url::fromPath(folder).appending(name);
        if (files.exists(candidate))
            return candidate;
    }
    return std::nullopt;
}

std::size_t hashOf(BookmarkData const& bookmark) { return std::hash<std::string_view>()({ reinterpret_cast<char const*>(bookmark.data()), bookmark.size() }); }

std::string expandingHome(std::string const& path, std::string_view homePath)
{
    bool const isBelowHome = path == "~" || path.starts_with("~/");
    return isBelowHome && !homePath.empty() ? std::string(homePath) + path.substr(1) : path;
}

} // namespace

ItemLocation::Resolution ItemLocation::resolve(LocationServices services) const
{
    using Kind = Resolution::Kind;
    using Source = Resolution::Source;
    if (bookmark) {
        if (auto const found = services.bookmarks.resolve(*bookmark))
            return { found->isStale ? Kind::needsRefresh : Kind::bookmark, found->url, Source::storedPath };
        if (services.bookmarks.isOnUnmountedServer(*bookmark))
            return { Kind::onUnmountedServer, std::nullopt, Source::storedPath };
    }
    if (!path)
        return {};
    auto const absolutePath = expandingHome(*path, services.homePath);
    if (auto found = existingFile(absolutePath, services.files))
        return { Kind::needsRefresh, std::move(found), Source::storedPath };
    if (auto found = relocatedFile(*path, services.files))
        return { Kind::needsRefresh, std::move(found), Source::relocated };
    return {};
}

std::optional<Url> ItemLocation::resolvedURL(LocationServices services) const { return resolve(services).url; }

void ItemLocation::refresh(Url const& url, LocationServices services)
{
    // Keeps the old bookmark if no new one can be made: it may still find the file some day.
    if (auto made = services.bookmarks.create(url))
        bookmark = std::move(made);
    path = url.path();
    displayName = url.lastPathComponent();
}

ItemLocation ItemLocation::forURL(Url const& url, LocationServices services)
{
    ItemLocation location;
    location.refresh(url, services);
    return location;
}

PropertyListDictionary ItemLocation::toPropertyList() const
{
    PropertyListDictionary record;
    record.reserve(3);
    if (bookmark)
        record.append("bookmark", *bookmark);
    if (path)
        record.append("path", textOrData(*path));
    if (displayName)
        record.append("displayName", textOrData(*displayName));
    return record;
}

Result<ItemLocation, ReadFailure> ItemLocation::fromPropertyList(PropertyList const& value)
{
    RecordReader record(value);
    ItemLocation location;
    location.bookmark = record.optionalData("bookmark");
    location.path = record.optionalBytes("path");
    location.displayName = record.optionalBytes("displayName");
    if (!record.ok())
        return Failure { *record.failure() };
    return location;
}

std::optional<ItemLocation> ItemLocation::fromOlderDictionary(PropertyListDictionary const& dictionary, LocationServices services)
{
    auto const* storedPath = dictionary.string("Path");
    if (!storedPath)
        return std::nullopt;
    ItemLocation location;
    location.path = *storedPath;
    auto const* name = dictionary.string("DisplayName");
    name = name ? name : dictionary.string("Title");
    if (name)
        location.displayName = *name;
    if (auto const url = location.resolvedURL(services))
        location.refresh(*url, services);
    return location;
}

std::size_t hashValue(ItemLocation const& location)
{
    HashCombiner hash;
    hash.addHash(location.bookmark ? 1 : 0);
    if (location.bookmark)
        hash.addHash(hashOf(*location.bookmark));
    return hash.add(location.path).add(location.displayName).result();
}

} // namespace zv
