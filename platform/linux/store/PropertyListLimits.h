#pragma once

#include <cstddef>
#include <string>

namespace zv {

/// The maximum number of values in a document, keys and each use of a shared one counted.
inline constexpr std::size_t maximumPropertyListValues = 2'000'000;

// Sentences on what is wrong with a document, the same in XML and in binary.

inline constexpr char const* damagedDocument = "it is not a property list, or it is damaged";
inline constexpr char const* tooManyValues = "it holds more values than the two million that are allowed";
inline constexpr char const* tooLargeDocument = "it is larger than the 64 MB that are allowed";
inline constexpr char const* largerThanAllowed = "it would be larger than the 64 MB that are allowed";
inline constexpr char const* dateOutOfRange = "a date in it lies outside the years 1 to 9999";
inline constexpr char const* stringNotUtf8 = "a string in it is not UTF-8";
inline constexpr char const* stringHoldsNull = "a string in it holds a null character";
/// The sentence for containers nested deeper than allowed.
[[nodiscard]] std::string tooDeepMessage();

} // namespace zv
