#pragma once

#include "base/PropertyList.h"

#include <string>
#include <string_view>

namespace zv {

/// True for text that every XML property-list reader preserves: UTF-8 without control characters
/// other than tab and line feed.
[[nodiscard]] bool isPlainText(std::string_view text);

/// True for text that a property list can hold, in binary where XML cannot: UTF-8 without null
/// characters.
[[nodiscard]] bool isStorableText(std::string_view text);

/// The text with each control character but null as a space: a line, as titles are.
[[nodiscard]] std::string withoutControls(std::string_view text);

/// A string if the text is plain, else data with its bytes.
[[nodiscard]] PropertyList textOrData(std::string_view text);

} // namespace zv
