#include "app/model/MenuItem.h"
#include "app/model/PropertyListJson.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace zv {

std::string toDragRecord(MenuItem const& item) { return toJson(toPropertyList(item)).dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace); }

Result<MenuItem, ReadFailure> menuItemFromDragRecord(std::string_view json)
{
    auto const parsed = nlohmann::ordered_json::parse(json, nullptr, false);
    if (parsed.is_discarded())
        return Failure { ReadFailure { {}, {}, "is not JSON" } };
    auto record = propertyListFromJson(parsed);
    if (!record)
        return Failure { ReadFailure { {}, {}, record.error() } };
    auto items = menuItemsFromPropertyList(PropertyListArray { std::move(record).value() });
    if (!items)
        return Failure { items.error() };
    if (auto failure = findUnwritable(*items))
        return Failure { std::move(*failure) };
    return std::move(items->front());
}

} // namespace zv
