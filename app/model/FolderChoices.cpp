#include "app/model/FolderChoices.h"

#include "base/Split.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <iterator>

namespace zv {

namespace {

constexpr char const* key = "FolderChoices";
constexpr char const* orders[] = { "name", "dateChanged", "dateAdded", "size", "kind" };

std::optional<bool> flagIn(PropertyListDictionary const& stored, char const* name)
{
    auto const* value = stored.find(name);
    return value ? value->boolean() : std::nullopt;
}

std::string textIn(PropertyListDictionary const& stored, char const* name)
{
    auto const* text = stored.string(name);
    return text ? *text : std::string();
}

/// Goes back to the last "*" alone, so that no pattern takes long.
bool fits(std::string_view name, std::string_view pattern)
{
    std::size_t at = 0, in = 0, star = std::string_view::npos, afterStar = 0;
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == '*') {
            star = in++;
            afterStar = at;
        } else if (in < pattern.size() && (pattern[in] == '?' || pattern[in] == name[at])) {
            ++in;
            ++at;
        } else if (star != std::string_view::npos) {
            in = star + 1;
            at = ++afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', in) == std::string_view::npos;
}

} // namespace

FolderChoices folderChoicesOf(MenuItem const& item)
{
    FolderChoices choices;
    auto const* value = item.unrecognizedKeys.find(key);
    auto const* stored = value ? value->dictionary() : nullptr;
    if (!stored)
        return choices;
    auto const order = std::find(std::begin(orders), std::end(orders), textIn(*stored, "order"));
    if (order != std::end(orders))
        choices.order = static_cast<FolderOrder>(order - std::begin(orders));
    choices.isReversed = flagIn(*stored, "reversed").value_or(false);
    choices.foldersFirst = flagIn(*stored, "foldersFirst");
    choices.showHidden = flagIn(*stored, "showHidden");
    choices.filter = textIn(*stored, "filter");
    return choices;
}

void setFolderChoices(MenuItem& item, FolderChoices const& choices)
{
    item.unrecognizedKeys.remove(key);
    if (choices == FolderChoices {})
        return;
    PropertyListDictionary stored;
    stored.append("order", orders[static_cast<int>(choices.order)]);
    stored.append("reversed", choices.isReversed);
    if (choices.foldersFirst)
        stored.append("foldersFirst", *choices.foldersFirst);
    if (choices.showHidden)
        stored.append("showHidden", *choices.showHidden);
    stored.append("filter", choices.filter);
    item.unrecognizedKeys.set(key, std::move(stored));
}

bool fitsFilter(std::string_view name, std::string_view filter)
{
    auto const patterns = split(filter, ',');
    bool isEmpty = true;
    auto const folded = lowerCased(withValidUtf8(name));
    for (auto const& part : patterns) {
        auto pattern = lowerCased(withValidUtf8(trimmed(part)));
        if (pattern.empty())
            continue;
        isEmpty = false;
        if (pattern.find_first_of("*?") == std::string::npos)
            pattern = "*" + pattern + "*";
        if (fits(folded, pattern))
            return true;
    }
    return isEmpty;
}

} // namespace zv
