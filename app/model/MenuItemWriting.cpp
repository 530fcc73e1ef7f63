#include "app/model/MenuItem.h"
#include "app/model/PlainText.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <span>
#include <utility>

namespace zv {

namespace {

/// The deepest nesting of values in `unrecognizedKeys`, so that the deepest menu's document still
/// stays below a property list's limit.
constexpr int maximumValueDepth = 128;

bool isWritable(PropertyList const& value, int depth = 0);

bool areWritable(PropertyListDictionary const& entries, int depth)
{
    return std::all_of(entries.begin(), entries.end(), [&](auto const& entry) { return isStorableText(entry.first) && isWritable(entry.second, depth); });
}

bool isWritable(PropertyList const& value, int depth)
{
    if (depth > maximumValueDepth)
        return false;
    if (auto const* text = value.string())
        return isStorableText(*text);
    if (auto const* array = value.array())
        return std::all_of(array->begin(), array->end(), [&](PropertyList const& element) { return isWritable(element, depth + 1); });
    auto const* dictionary = value.dictionary();
    return !dictionary || areWritable(*dictionary, depth + 1);
}

bool isWritable(KeyEquivalentSpec::Trigger const& trigger)
{
    bool const isCharacter = trigger.kind == KeyEquivalentSpec::Trigger::Kind::character;
    return isStorableText(trigger.text) && (!isCharacter || singleGrapheme(trigger.text));
}

/// The key with a value that no property list can hold; null when there is none.
char const* unwritableKey(MenuItem const& item)
{
    if (!isStorableText(item.kind.rawValue()))
        return "kind";
    if (item.title && !isStorableText(*item.title))
        return "title";
    if (item.keyEquivalent && !isWritable(item.keyEquivalent->trigger))
        return "keyEquivalent";
    return areWritable(item.unrecognizedKeys, 0) ? nullptr : "unrecognizedKeys";
}

bool findUnwritable(std::span<MenuItem const> items, ReadFailure& failure)
{
    auto& indexPath = failure.indexPath;
    for (std::size_t i = 0; i < items.size(); ++i) {
        indexPath.push_back(i);
        if (auto const* key = unwritableKey(items[i])) {
            failure.key = key;
            failure.reason = "holds a value that cannot be stored";
            return true;
        }
        if (indexPath.size() > maximumMenuDepth) {
            failure.reason = "is nested deeper than " + std::to_string(maximumMenuDepth) + " levels";
            return true;
        }
        if (findUnwritable(items[i].children, failure))
            return true;
        indexPath.pop_back();
    }
    return false;
}

} // namespace

std::optional<ReadFailure> findUnwritable(std::vector<MenuItem> const& items)
{
    ReadFailure failure;
    return findUnwritable(items, failure) ? std::optional(std::move(failure)) : std::nullopt;
}

bool isWritable(MenuItem const& item)
{
    ReadFailure failure;
    return !findUnwritable({ &item, 1 }, failure);
}

PropertyListDictionary toPropertyList(MenuItem const& item)
{
    PropertyListDictionary record;
    record.reserve(9);
    record.append("id", item.id.toString());
    record.append("kind", item.kind.rawValue());
    if (item.title)
        record.append("title", *item.title);
    record.append("children", toPropertyList(item.children));
    if (item.location)
        record.append("location", item.location->toPropertyList());
    if (item.keyEquivalent)
        record.append("keyEquivalent", item.keyEquivalent->toPropertyList());
    record.append("isHidden", item.isHidden);
    if (item.scanDepth)
        record.append("scanDepth", *item.scanDepth);
    record.append("unrecognizedKeys", item.unrecognizedKeys);
    return record;
}

PropertyListArray toPropertyList(std::vector<MenuItem> const& items)
{
    PropertyListArray records;
    records.reserve(items.size());
    for (auto const& item : items)
        records.emplace_back(toPropertyList(item));
    return records;
}

} // namespace zv
