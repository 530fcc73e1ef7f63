#include "app/model/MenuItem.h"
#include "app/model/NameTable.h"
#include "app/model/PlainText.h"
#include "app/model/RecordReader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zv {

namespace {

constexpr std::array<std::string_view, 15> knownKeys { "Kind", "Title", "DisplayName", "Items", "Hidden", "Path", "ScanDepth", "Command", "SystemHotKey",
    "OSVersion", "Key", "KeyModifierShift", "KeyModifierOption", "KeyModifierControl", "KeyModifierNoCommand" };

// Command codes of the older format, and the kinds that replace them.
constexpr std::array<std::string_view, 6> commandCodes { "dokm", "dokh", "dlft", "dbtm", "drig", "dokp" };
constexpr std::array<MenuItemKind::Case, commandCodes.size()> commandKinds { MenuItemKind::dockMagnification, MenuItemKind::dockHiding,
    MenuItemKind::dockPosLeft, MenuItemKind::dockPosBottom, MenuItemKind::dockPosRight, MenuItemKind::dockPrefs };

MenuItemKind kindOfCommand(std::string_view code)
{
    static NameTable const table(commandCodes);
    auto const position = table.find(code);
    return position ? commandKinds[*position] : MenuItemKind::menuCommand;
}

MenuItemKind kindOf(std::string const& text, PropertyListDictionary const& dictionary)
{
    auto kind = MenuItemKind::fromRawValue(text);
    auto const* command = dictionary.string("Command");
    return kind == MenuItemKind::menuCommand && command ? kindOfCommand(*command) : kind;
}

std::optional<std::string> titleOf(PropertyListDictionary const& dictionary)
{
    auto const* title = dictionary.string("Title");
    title = title ? title : dictionary.string("DisplayName");
    return title ? std::optional(withoutControls(*title)) : std::nullopt;
}

PropertyListDictionary unrecognizedKeysOf(PropertyListDictionary const& dictionary)
{
    PropertyListDictionary unrecognized;
    for (auto const& [key, value] : dictionary) {
        if (std::find(knownKeys.begin(), knownKeys.end(), key) == knownKeys.end())
            unrecognized.append(key, value);
    }
    return unrecognized;
}

std::vector<MenuItem> readList(PropertyListArray const& values, LocationServices services, int depth);

std::optional<MenuItem> readItem(PropertyList const& value, LocationServices services, int depth)
{
    auto const* dictionary = value.dictionary();
    auto const* kindText = dictionary ? dictionary->string("Kind") : nullptr;
    if (!kindText || depth > maximumMenuDepth)
        return std::nullopt;
    auto item = MenuItem::ofKind(kindOf(*kindText, *dictionary));
    item.title = titleOf(*dictionary);
    // Presence counts: a stored false still hides the item.
    item.isHidden = dictionary->contains("Hidden");
    item.keyEquivalent = KeyEquivalentSpec::fromOlderDictionary(*dictionary);
    if (auto const* scanDepth = dictionary->find("ScanDepth"))
        item.scanDepth = scanDepth->integer();
    if (item.kind == MenuItemKind::fsObject)
        item.location = ItemLocation::fromOlderDictionary(*dictionary, services);
    auto const* children = dictionary->find("Items");
    if (children && children->array())
        item.children = readList(*children->array(), services, depth + 1);
    item.unrecognizedKeys = unrecognizedKeysOf(*dictionary);
    return item;
}

std::vector<MenuItem> readList(PropertyListArray const& values, LocationServices services, int depth)
{
    std::vector<MenuItem> items;
    items.reserve(values.size());
    for (auto const& value : values) {
        if (auto item = readItem(value, services, depth))
            items.push_back(std::move(*item));
    }
    return items;
}

bool findUnreadable(PropertyListArray const& values, ReadFailure& failure);

/// True, with `failure` filled, when the record at its index path cannot be read whole.
bool isUnreadable(PropertyList const& value, ReadFailure& failure)
{
    RecordReader record(value);
    (void)record.requiredString("Kind");
    auto const* children = record.optionalValue("Items");
    if (children && !children->array())
        record.fail("Items", wrongTypeReason(*children, "an array"));
    if (failure.indexPath.size() > maximumMenuDepth)
        record.fail({}, "is nested deeper than " + std::to_string(maximumMenuDepth) + " levels");
    if (record.ok())
        return children && findUnreadable(*children->array(), failure);
    failure.key = record.failure()->key;
    failure.reason = record.failure()->reason;
    return true;
}

bool findUnreadable(PropertyListArray const& values, ReadFailure& failure)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        failure.indexPath.push_back(i);
        if (isUnreadable(values[i], failure))
            return true;
        failure.indexPath.pop_back();
    }
    return false;
}

} // namespace

std::optional<ReadFailure> findUnreadableInOlderArray(PropertyListArray const& values)
{
    ReadFailure failure;
    return findUnreadable(values, failure) ? std::optional(std::move(failure)) : std::nullopt;
}

std::optional<MenuItem> menuItemFromOlderDictionary(PropertyList const& value, LocationServices services) { return readItem(value, services, 1); }

std::vector<MenuItem> menuItemsFromOlderArray(PropertyListArray const& values, LocationServices services) { return readList(values, services, 1); }

} // namespace zv
