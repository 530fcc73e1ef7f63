#pragma once

#include "app/model/ReadFailure.h"
#include "base/PropertyList.h"
#include "base/Result.h"
#include "base/Url.h"
#include "platform/files/Bookmarks.h"
#include "platform/files/FileSystem.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// Services to find a file again. All outlive their holder.
struct LocationServices {
    FileSystem& files;
    Bookmarks& bookmarks;
    /// Replaces a leading "~" of an older record's path; if empty, that stays.
    std::string_view homePath {};
};

/// The location of a menu item's file, in a form that survives moving and renaming.
struct ItemLocation {
    std::optional<BookmarkData> bookmark;
    std::optional<std::string> path; ///< absolute, the bytes of the file system
    std::optional<std::string> displayName;

    struct Resolution {
        enum class Kind { needsRefresh, bookmark, onUnmountedServer, unresolved };
        enum class Source { storedPath, relocated };
        Kind kind = Kind::unresolved;
        std::optional<Url> url; ///< absent when unresolved, and on a server that is not mounted
        Source via = Source::storedPath; ///< meaningful only for needsRefresh
    };

    /// Tries the bookmark, then the path, then the six standard folders of applications. A file on a
    /// server that is not mounted is looked for nowhere else.
    [[nodiscard]] Resolution resolve(LocationServices services) const;
    /// The URL of resolve(), or nothing.
    [[nodiscard]] std::optional<Url> resolvedURL(LocationServices services) const;
    /// Updates the record for a file found at `url`.
    void refresh(Url const& url, LocationServices services);
    /// The location of a file that the user chose.
    [[nodiscard]] static ItemLocation forURL(Url const& url, LocationServices services);

    /// "bookmark", "path", "displayName", each only when present. Text that is not UTF-8 (a path's
    /// bytes) is written as data; reading takes both.
    [[nodiscard]] PropertyListDictionary toPropertyList() const;
    [[nodiscard]] static Result<ItemLocation, ReadFailure> fromPropertyList(PropertyList const& value);
    /// Reads the older form: "Path", and "DisplayName" or "Title" (DisplayName wins); resolved at
    /// once. Empty without "Path".
    [[nodiscard]] static std::optional<ItemLocation> fromOlderDictionary(PropertyListDictionary const& dictionary, LocationServices services);

    friend bool operator==(ItemLocation const&, ItemLocation const&) = default;
};

[[nodiscard]] std::size_t hashValue(ItemLocation const& location);

} // namespace zv
