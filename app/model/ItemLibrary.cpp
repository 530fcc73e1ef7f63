#include "app/model/ItemLibrary.h"

#include "app/model/HashCombiner.h"
#include "base/Translation.h"
#include "platform/text/PropertyListFormat.h"

#include <set>
#include <utility>

namespace zv {

namespace {

std::string textIn(PropertyListDictionary const& dictionary, std::string_view key)
{
    auto const* text = dictionary.string(key);
    return text ? *text : std::string();
}

bool fitsAppleMenu(MenuItemKind const& kind) { return kind != MenuItemKind::menuCommand && kind != MenuItemKind::unknown; }

/// Includes the template: two entries may share a title if they add different items.
std::string identifierOf(std::string const& title, MenuItem const& itemTemplate)
{
    return title + '/' + itemTemplate.title.value_or("") + '/' + std::string(itemTemplate.kind.rawValue());
}

std::optional<LibraryEntry> readEntry(PropertyList const& value, LocationServices services, LibraryMode mode)
{
    auto const* dictionary = value.dictionary();
    if (!dictionary || (mode == LibraryMode::appleMenu && textIn(*dictionary, "AppleMenu") != "YES"))
        return std::nullopt;
    auto const* title = dictionary->string("Title");
    auto const* data = dictionary->find("Data");
    if (!title || !data)
        return std::nullopt;
    auto itemTemplate = menuItemFromOlderDictionary(*data, services);
    if (!itemTemplate || (mode == LibraryMode::appleMenu && !fitsAppleMenu(itemTemplate->kind)))
        return std::nullopt;
    auto id = identifierOf(*title, *itemTemplate);
    auto shown = itemTemplate->kind.shownTitle(*title);
    if (shown == *title)
        shown = tr(title->c_str());
    return LibraryEntry { std::move(id), std::move(shown), tr(textIn(*dictionary, "Description").c_str()), std::move(*itemTemplate),
        tr(textIn(*dictionary, "Group").c_str()) };
}

} // namespace

std::size_t hashValue(LibraryEntry const& entry)
{
    HashCombiner hash;
    hash.add(entry.id).add(entry.title).add(entry.localizedDescription).addHash(hashValue(entry.itemTemplate)).add(entry.group);
    return hash.result();
}

std::vector<LibraryEntry> loadItemLibrary(Resources const& resources, LocationServices services, LibraryMode mode)
{
    auto const bytes = resources.load("Library", "plist");
    if (!bytes)
        return {};
    auto const library = readPropertyList(*bytes);
    if (!library || !library->array())
        return {};
    std::vector<LibraryEntry> entries;
    std::set<std::string> takenIds;
    for (auto const& value : *library->array()) {
        auto entry = readEntry(value, services, mode);
        if (entry && takenIds.insert(entry->id).second)
            entries.push_back(std::move(*entry));
    }
    return entries;
}

} // namespace zv
