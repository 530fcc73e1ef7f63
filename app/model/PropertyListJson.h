#pragma once

#include "base/PropertyList.h"
#include "base/Result.h"

#include <nlohmann/json_fwd.hpp>

namespace zv {

/// Converts a property list to JSON and back without loss. Types that JSON lacks become an object
/// with one key: {"$data": base64}, {"$date": seconds since 2001}, {"$real": "nan"}; a dictionary
/// that looks like one of these becomes {"$dictionary": {…}}.
[[nodiscard]] nlohmann::ordered_json toJson(PropertyList const& value);
/// The failure is a reason, such as "is nested too deep".
[[nodiscard]] Result<PropertyList> propertyListFromJson(nlohmann::ordered_json const& json);

} // namespace zv
