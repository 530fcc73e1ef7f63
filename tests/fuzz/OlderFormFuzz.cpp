#include "app/model/MenuItem.h"
#include "tests/fuzz/Model.h"

using namespace zv;

namespace {

PropertyListArray recordsOf(PropertyList const& document)
{
    if (auto const* array = document.array())
        return *array;
    auto const* dictionary = document.dictionary();
    auto const* description = dictionary ? dictionary->find("MenuDesc") : nullptr;
    return description && description->array() ? *description->array() : PropertyListArray { document };
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    auto const document = readPropertyList(fuzz::bytesAt(data, size));
    if (!document)
        return 0;
    auto const records = recordsOf(*document);
    auto const items = menuItemsFromOlderArray(records, fuzz::services());
    if (!findUnreadableInOlderArray(records))
        fuzz::require(items.size() == records.size(), "a record without fault was skipped");
    if (!findUnwritable(items))
        fuzz::requireRoundTrips(items);
    return 0;
}
