#pragma once

#include "base/PropertyList.h"

#include <optional>
#include <string>
#include <string_view>

namespace zv {

// Scalars as XML property lists spell them. Blanks around them count for nothing; the result is
// empty where the text is no such value.

/// Decimal or hexadecimal, with or without a sign.
[[nodiscard]] std::optional<PropertyList> integerFromText(std::string const& text);
/// Heeds the locale's decimal point: the caller sets a plain locale.
[[nodiscard]] std::optional<PropertyList> realFromText(std::string const& text);
/// Reads "2001-01-01T00:00:00Z"; a fraction of a second may follow the seconds and is dropped.
[[nodiscard]] std::optional<PropertyList> dateFromText(std::string const& text);
/// Base64, on any number of lines.
[[nodiscard]] std::optional<PropertyList> dataFromText(std::string text);

/// Whether XML, with years of four digits, can hold the date; binary is held to the same.
[[nodiscard]] bool isDateInRange(double secondsSinceReference);
[[nodiscard]] bool isBlank(std::string_view text);

} // namespace zv
