#pragma once

#include "base/PropertyList.h"
#include "base/Result.h"

#include <string_view>

namespace zv {

/// Reads a property list in XML within the limits of platform/text/PropertyListFormat.h. Entities
/// other than XML's own five are refused, and nothing outside the document is looked at.
[[nodiscard]] Result<PropertyList> readXmlPropertyList(std::string_view text);

} // namespace zv
