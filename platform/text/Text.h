#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Text in UTF-8. "Character" means a grapheme cluster. Bytes that are not UTF-8 never crash:
/// they count as one replacement character each. Each system has one file of its own behind
/// this header. Any thread.
namespace zv {

/// True when every byte belongs to well-formed UTF-8.
[[nodiscard]] bool isValidUtf8(std::string_view text);
/// The text with each ill-formed sequence replaced by U+FFFD.
[[nodiscard]] std::string withValidUtf8(std::string_view text);

[[nodiscard]] std::size_t graphemeCount(std::string_view text);
/// The text when it is exactly one character, else nothing.
[[nodiscard]] std::optional<std::string_view> singleGrapheme(std::string_view text);
/// The leading `count` characters (views into `text`), fewer when it is shorter.
[[nodiscard]] std::vector<std::string_view> firstGraphemes(std::string_view text, std::size_t count);

/// Full case mapping, independent of the locale.
[[nodiscard]] std::string lowerCased(std::string_view text);
[[nodiscard]] std::string upperCased(std::string_view text);

/// The text without Unicode white space (line breaks included) at its ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);
[[nodiscard]] bool isWhiteSpace(std::string_view grapheme);
/// True for one character of the general categories letter, number, punctuation or symbol.
[[nodiscard]] bool isLetterNumberPunctuationOrSymbol(std::string_view grapheme);
/// The text in lower case and without accents, for searching.
[[nodiscard]] std::string foldedForSearch(std::string_view text);

/// Compares as a file manager does, in the user's language: case is ignored, digit runs
/// compare by value. Negative, zero or positive.
[[nodiscard]] int localizedStandardCompare(std::string_view a, std::string_view b);
/// A key for compareSortKeys(), with which a long list is sorted. Where two keys differ within
/// their first eight bytes, those alone tell the order.
[[nodiscard]] std::string sortKey(std::string_view text);
/// Appends those bytes to a block that many keys share.
void appendSortKey(std::string& block, std::string_view text);
/// The result of localizedStandardCompare() for the keys' texts.
[[nodiscard]] int compareSortKeys(std::string_view a, std::string_view b);

} // namespace zv
