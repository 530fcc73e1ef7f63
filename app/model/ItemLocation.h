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

/// What finding a file again takes. All of it outlives whoever holds this.
struct LocationServices {
    FileSystem& files;
    Bookmarks& bookmarks;
    /// What a leading "~" of an older record's path stands for; where empty, it stays.
    std::string_view homePath {};
};

/// Where a file of the menu lives, in a form that survives its being moved or renamed.
struct ItemLocation {
    std::optional<BookmarkData> bookmark;
    std::optional<std::string> path; ///< absolute, the bytes of the file system
    std::optional<std::string> displayName;

    struct Resolution {
        enum class Kind { needsRefresh, bookmark, unresolved };
        enum class Source { storedPath, relocated };
        Kind kind = Kind::unresolved;
        std::optional<Url> url; ///< absent exactly when unresolved
        Source via = Source::storedPath; ///< meaningful for needsRefresh
    };

    /// Bookmark, then path, then the six standard folders of applications.
    [[nodiscard]] Resolution resolve(LocationServices services) const;
    /// The URL of resolve(), or nothing.
    [[nodiscard]] std::optional<Url> resolvedURL(LocationServices services) const;
    /// Makes the record current for a file that was found at `url`.
    void refresh(Url const& url, LocationServices services);
    /// A location made for a file that the user chose.
    [[nodiscard]] static ItemLocation forURL(Url const& url, LocationServices services);

    /// "bookmark", "path", "displayName", each only when present. Text that is not UTF-8
    /// (a path's bytes) is kept by writing it as data; reading takes both.
    [[nodiscard]] PropertyListDictionary toPropertyList() const;
    [[nodiscard]] static Result<ItemLocation, ReadFailure> fromPropertyList(PropertyList const& value);
    /// The older form: "Path", and "DisplayName" or "Title" (DisplayName wins); resolved at once.
    /// Nothing when there is no "Path".
    [[nodiscard]] static std::optional<ItemLocation> fromOlderDictionary(PropertyListDictionary const& dictionary, LocationServices services);

    friend bool operator==(ItemLocation const&, ItemLocation const&) = default;
};

[[nodiscard]] std::size_t hashValue(ItemLocation const& location);

} // namespace zv
