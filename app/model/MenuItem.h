#pragma once

#include "app/model/ItemLocation.h"
#include "app/model/KeyEquivalentSpec.h"
#include "app/model/MenuItemKind.h"
#include "app/model/ReadFailure.h"
#include "base/PropertyList.h"
#include "base/Result.h"
#include "base/Uuid.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zv {

/// An entry of the user's menu. A plain value: items own their children.
struct MenuItem {
    using ID = Uuid;

    ID id = Uuid::random();
    MenuItemKind kind = MenuItemKind::separator;
    std::optional<std::string> title; ///< set by the user, one line; absent means a default is shown
    std::vector<MenuItem> children;
    std::optional<ItemLocation> location;
    std::optional<KeyEquivalentSpec> keyEquivalent;
    bool isHidden = false;
    std::optional<std::int64_t> scanDepth; ///< folder levels to expand; absent means the preference
    PropertyListDictionary unrecognizedKeys; ///< of the older form; preserved when written

    [[nodiscard]] static MenuItem ofKind(MenuItemKind kind);

    /// Sets a title that the user chose, or a file has: shown as it is in every language, whatever our own resources call theirs.
    void setOwnTitle(std::optional<std::string> own);
    /// The title, else the location's display name, else the kind's default title; the
    /// first that is not empty.
    [[nodiscard]] std::string displayTitle() const;

    friend bool operator==(MenuItem const&, MenuItem const&) = default;
};

[[nodiscard]] std::size_t hashValue(MenuItem const& item);

/// The deepest nesting that reading accepts; far beyond any real menu.
inline constexpr int maximumMenuDepth = 64;

/// The menu document's keyed form, keys in their fixed order.
[[nodiscard]] PropertyListDictionary toPropertyList(MenuItem const& item);
[[nodiscard]] PropertyListArray toPropertyList(std::vector<MenuItem> const& items);
[[nodiscard]] Result<std::vector<MenuItem>, ReadFailure> menuItemsFromPropertyList(PropertyList const& value);

/// Finds the first record that cannot be written: a text that is not UTF-8, too deep a nesting.
[[nodiscard]] std::optional<ReadFailure> findUnwritable(std::vector<MenuItem> const& items);
/// Whether a menu may have the item at its top level.
[[nodiscard]] bool isWritable(MenuItem const& item);

/// Reads the older dictionary form. Empty when "Kind" is missing or no text.
[[nodiscard]] std::optional<MenuItem> menuItemFromOlderDictionary(PropertyList const& value, LocationServices services);
/// Skips values that yield no item.
[[nodiscard]] std::vector<MenuItem> menuItemsFromOlderArray(PropertyListArray const& values, LocationServices services);
/// Finds the first record of the older form that would be skipped or cut short.
[[nodiscard]] std::optional<ReadFailure> findUnreadableInOlderArray(PropertyListArray const& values);

/// The item's record as JSON, for drag and drop.
[[nodiscard]] std::string toDragRecord(MenuItem const& item);
[[nodiscard]] Result<MenuItem, ReadFailure> menuItemFromDragRecord(std::string_view json);
/// The drag record's content type: the program's identifier and ".menu-item".
inline constexpr char const* menuItemDragType = "org.zanthevell.ZantheVell.menu-item";

/// Searches depth-first in list order: an item, its children, its next sibling.
[[nodiscard]] MenuItem const* findItem(std::span<MenuItem const> items, Uuid const& id);
[[nodiscard]] bool containsKind(std::vector<MenuItem> const& items, MenuItemKind::Case kind);

} // namespace zv
