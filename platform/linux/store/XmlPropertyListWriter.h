#pragma once

#include "base/PropertyList.h"
#include "base/Result.h"

#include <cstddef>
#include <vector>

namespace zv {

/// The value as an XML property list, a tab a level, as other programs write it. Fails like writePropertyList().
[[nodiscard]] Result<std::vector<std::byte>> writeXmlPropertyList(PropertyList const& value);

} // namespace zv
