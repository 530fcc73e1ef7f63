#pragma once

#include "base/PropertyList.h"
#include "base/Result.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace zv {

enum class PropertyListEncoding { xml, binary };

/// Containers nested deeper than this are refused on reading and on writing; the
/// deepest menu anybody made by hand has a dozen levels, each costing three containers.
inline constexpr int maximumPropertyListDepth = 512;

/// Documents larger than this are refused before they are parsed.
inline constexpr std::size_t maximumPropertyListSize = std::size_t { 64 } << 20;

/// Reads XML or binary, told apart by their first bytes. The failure is a sentence
/// without a final stop that says what is wrong. Any thread.
[[nodiscard]] Result<PropertyList> readPropertyList(std::span<std::byte const> bytes);
/// Fails when nested too deep, or where a string is not UTF-8. XML has no fractions of a
/// second: there a date becomes the whole second before it. Any thread.
[[nodiscard]] Result<std::vector<std::byte>> writePropertyList(PropertyList const& value, PropertyListEncoding encoding);

} // namespace zv
