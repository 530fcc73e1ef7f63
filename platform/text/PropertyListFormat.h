#pragma once

#include "base/PropertyList.h"
#include "base/Result.h"
#include "base/XmlText.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace zv {

enum class PropertyListEncoding { xml, binary };

/// The deepest nesting of containers accepted on reading and on writing; a menu made by hand
/// has a dozen levels at most, each costing three containers.
inline constexpr int maximumPropertyListDepth = 512;

/// The largest document accepted, in bytes; a larger one is refused before it is parsed.
inline constexpr std::size_t maximumPropertyListSize = std::size_t { 64 } << 20;

/// Reads XML or binary, told apart by their first bytes. The failure is a sentence
/// without a final stop. Any thread.
[[nodiscard]] Result<PropertyList> readPropertyList(std::span<std::byte const> bytes);
/// Fails when nested too deep, where a string is not UTF-8, and in XML where isXmlText() refuses
/// one. XML has no fractions of a second: there a date becomes the whole second before it. Any
/// thread.
[[nodiscard]] Result<std::vector<std::byte>> writePropertyList(PropertyList const& value, PropertyListEncoding encoding);
/// In XML where it gives the value back as it is, else in binary. Any thread.
[[nodiscard]] inline Result<std::vector<std::byte>> writePropertyList(PropertyList const& value)
{
    return writePropertyList(value, isXmlValue(value) ? PropertyListEncoding::xml : PropertyListEncoding::binary);
}

} // namespace zv
