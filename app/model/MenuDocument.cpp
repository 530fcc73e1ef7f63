#include "app/model/MenuDocument.h"

#include "app/model/RecordReader.h"
#include "platform/text/PropertyListFormat.h"

#include <unordered_set>
#include <utility>

namespace zv {

namespace {

using Items = Result<std::vector<MenuItem>, ReadFailure>;

Items failDocument(std::string reason) { return Failure { ReadFailure { {}, {}, std::move(reason) } }; }

Items readOlderForm(PropertyList const& description, LocationServices services)
{
    auto const* records = description.array();
    if (!records)
        return Failure { ReadFailure { {}, "MenuDesc", wrongTypeReason(description, "an array") } };
    if (auto failure = findUnreadableInOlderArray(*records))
        return Failure { std::move(*failure) };
    return menuItemsFromOlderArray(*records, services);
}

Items readItems(PropertyList const& document, LocationServices services)
{
    auto const* dictionary = document.dictionary();
    if (!dictionary)
        return menuItemsFromPropertyList(document);
    if (auto const* description = dictionary->find("MenuDesc"))
        return readOlderForm(*description, services);
    if (auto const* menu = dictionary->find("Menu"))
        return menuItemsFromPropertyList(*menu);
    return failDocument("is a dictionary without \"MenuDesc\" or \"Menu\"");
}

/// Ids must be unique, to tell items apart in edits and shortcuts.
void renewRepeatedIds(std::vector<MenuItem>& items, std::unordered_set<Uuid>& taken, ImportedMenu& menu)
{
    for (auto& item : items) {
        ++menu.itemCount;
        if (!taken.insert(item.id).second) {
            item.id = Uuid::random();
            taken.insert(item.id);
            ++menu.renewedIds;
        }
        renewRepeatedIds(item.children, taken, menu);
    }
}

} // namespace

Result<std::vector<std::byte>> menuDocument(std::vector<MenuItem> const& items)
{
    if (auto const failure = findUnwritable(items))
        return Failure { failure->description() };
    return writePropertyList(toPropertyList(items));
}

Result<ImportedMenu, ReadFailure> readMenuDocument(std::span<std::byte const> bytes, LocationServices services)
{
    auto const document = readPropertyList(bytes);
    if (!document)
        return Failure { ReadFailure { {}, {}, "cannot be read: " + document.error() } };
    auto items = readItems(*document, services);
    if (!items)
        return Failure { items.error() };
    if (auto failure = findUnwritable(*items))
        return Failure { std::move(*failure) };
    ImportedMenu menu { std::move(items).value() };
    std::unordered_set<Uuid> taken;
    renewRepeatedIds(menu.items, taken, menu);
    return menu;
}

} // namespace zv
