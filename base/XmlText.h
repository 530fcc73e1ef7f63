#pragma once

#include "base/PropertyList.h"

#include <string_view>

namespace zv {

/// Whether XML gives the UTF-8 text back as it is: it knows no control characters but tab and line
/// feed, reads a carriage return as a line feed, and has no U+FFFE and U+FFFF.
[[nodiscard]] bool isXmlText(std::string_view text);

/// Whether a property list in XML gives the value back as it is: all its texts, and its dates,
/// which have no fractions of a second there.
[[nodiscard]] bool isXmlValue(PropertyList const& value);

} // namespace zv
